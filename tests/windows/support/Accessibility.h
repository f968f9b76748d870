#pragma once

class QWidget;

/// Every control that takes the focus has a name, and no two that are shown share a mnemonic.
void ExpectAccessible(QWidget& dialog);

/// Tab goes through every control that takes the focus, row by row or column by column, and comes back to the first.
void ExpectReadByTab(QWidget& dialog);
