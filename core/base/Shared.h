#pragma once

#include <QString>
#include <QStringList>

/// Appends the pieces of the text that end at a separator, trimmed, empty ones too. What follows the last separator is
/// appended trimmed and in upper case; nothing is appended for a separator at the very end or for an empty text.
void SplitList(const QString& text, QChar separator, QStringList& pieces);

/// Letter for letter, as the code page has them: "ß" and "µ", whose capitals it lacks, stay. Both sides of a country
/// comparison go through this.
QString UpperCzech(const QString& text);

/// True for an existing folder; blanks and separators at the end of the path do not count. A backslash is a separator
/// only where the platform has it so: elsewhere it may be the last letter of a name.
bool DirectoryExists(const QString& path);

/// Makes every missing folder of the path. False when one cannot be made, except the first component, which may be a
/// drive: it is let pass, and a path that is nothing else counts as made.
bool CreateDirectoryPath(const QString& path);

/// Loads the library, from the program folder or by the system's search, and lets it register itself. Otherwise shows
/// which of the three went wrong (no such file, cannot be loaded, no `DllRegisterServer`) and answers false.
bool RegisterServerDll(const QString& fileName);

/// The program's version as "1.0.0".
QString FormatVersion();
