#pragma once

class QUrl;

/// Opens a page in the user's browser; says so where there is none.
void OpenWebPage(const QUrl& page);
