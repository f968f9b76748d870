#pragma once

class QWidget;

/// The window that a box or dialog belongs over; null before the first window.
QWidget* ActiveWindow();
