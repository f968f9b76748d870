#pragma once

#include <QString>

#include <functional>
#include <optional>
#include <string_view>

/// Turns the bytes of a text field into a text.
using DbfDecoder = std::function<QString(QByteArrayView)>;

/// The decoder of the code page that a table is marked with: "LDID/104" for the mark in its header, or the text of the
/// file that lies beside the table. Without a mark, and with "the system's own", it is Windows-1250. Nothing for a mark
/// that is not known.
std::optional<DbfDecoder> DecoderOfMark(std::string_view mark);
