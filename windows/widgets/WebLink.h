#pragma once

class QString;
class QUrl;
class QWidget;

/// Opens an address with the user's program for it. Shows `failure` where there is none, which may come some time
/// later; not if the asking window is gone by then.
void OpenAddress(const QUrl& address, QWidget& asker, const QString& failure);
/// Likewise in the user's browser; says so where there is none.
void OpenWebPage(const QUrl& page, QWidget& asker);
