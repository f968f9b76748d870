#pragma once

class QUrl;
class QWidget;

/// Opens a page in the user's browser. Says so where there is none, which may show only some time later; unless the
/// asking window is gone by then.
void OpenWebPage(const QUrl& page, QWidget& asker);
