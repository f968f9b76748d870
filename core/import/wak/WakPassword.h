#pragma once

#include <QString>

/// What is longer is cut.
constexpr int LongestStoredPassword = 20;

/// The form in which the settings file keeps the server's password: 40 upper-case hexadecimal digits, empty for an
/// empty password. It hides the password from a glance and from nothing else. Only the first 20 characters are kept;
/// a character that Windows-1250 lacks becomes '?'.
QString ScrambleWakPassword(const QString& password);

/// The password again; empty for a value that is not 40 hexadecimal digits (of either case).
QString UnscrambleWakPassword(const QString& stored);
