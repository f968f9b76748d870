#pragma once

#include <QByteArray>
#include <QString>

/// Windows-1250, the code page of the settings file, of foreign ini files and of the stored password. One character is
/// one byte. The five bytes that the code page leaves open read as the control characters of the same number, so that
/// every byte comes back as it was.
QString DecodeWindows1250(QByteArrayView bytes);
/// Composes letters and accents first ("c" + caron is "č"); a character that the code page lacks becomes '?'.
QByteArray EncodeWindows1250(QStringView text);

/// The Czech and Slovak code page of DOS that is named after the brothers Kamenický (895). One character is one byte.
QString DecodeKamenicky(QByteArrayView bytes);
