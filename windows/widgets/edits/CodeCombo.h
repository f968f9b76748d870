#pragma once

#include <QStringList>

#include <cstdint>

class QComboBox;

/// A typed blank belongs to the text that is looked for, as every other letter does, and does not open the list.
void TypingSelects(QComboBox& combo);

/// Drop-down lists of code-list texts, each item carrying its code.
void FillCodes(QComboBox& combo, const QStringList& texts);
/// Selects the item of the code; none for a code that is not in the list.
void SelectCode(QComboBox& combo, std::int32_t code);
/// −1 when none is chosen.
std::int32_t ChosenCode(const QComboBox& combo);
