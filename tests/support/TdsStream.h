#pragma once

#include "tests/support/TdsServer.h"

/// The tokens of the server's side of TDS 7.4, written one after the other.
class TdsStream {
public:
    QByteArray bytes;

    void Number(std::uint64_t value, int size);
    /// A text with its length before it, of `lengthSize` bytes, in characters.
    void Text(const QString& text, int lengthSize);
    void Error(int number, const QString& text);
    /// Token 0xFD at a statement's end, 0xFF inside a routine, 0xFE at its end.
    void Done(std::uint8_t token, int status, std::size_t rows);
    void LoginDone(const QString& database);
    void Columns(const std::vector<TdsTable::Column>& columns);
    void Row(const std::vector<TdsTable::Column>& columns, const TdsTable::Row& row);

private:
    void Cell(const std::string& type, const std::optional<std::string>& value);
};

/// The message in packets of the negotiated size; without `whole` the last one does not say that it is the last.
QByteArray TdsPackets(const QByteArray& message, bool whole);
