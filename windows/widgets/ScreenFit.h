#pragma once

#include <QSize>

class QWidget;

/// The wanted size of a window, or what of it the window's screen has room for within the desktop's bars and the
/// window's own frame.
QSize FittingSize(const QWidget& window, QSize wanted);
/// The same for a page of a sheet, which has buttons below it.
QSize FittingPage(const QWidget& page, QSize wanted);
