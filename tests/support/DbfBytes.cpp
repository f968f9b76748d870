#include "tests/support/DbfBytes.h"

#include "core/base/CodePage.h"

namespace {

constexpr unsigned char VisualFoxPro = 0x30;
/// Where that program keeps the name of a table's database.
constexpr int BackLink = 263;

void AppendNumber(QByteArray& bytes, std::size_t number, int length) {
    for (int i = 0; i < length; ++i)
        bytes += static_cast<char>(number >> (8 * i) & 0xFF);
}

QByteArray Padded(const DbfBytes::Column& column, const QByteArray& value) {
    const bool isNumber = column.type == 'N' || column.type == 'F';
    return isNumber ? value.rightJustified(column.width, ' ', true) : value.leftJustified(column.width, ' ', true);
}

} // namespace

QByteArray DbfBytes::Head(std::size_t records) const {
    const int header = 32 + 32 * static_cast<int>(columns.size()) + 1 + (kind == VisualFoxPro ? BackLink : 0);
    int record = 1;
    for (const Column& column : columns)
        record += column.width;

    QByteArray bytes;
    bytes += static_cast<char>(kind);
    bytes += QByteArray("\x0c\x07\x02", 3);
    AppendNumber(bytes, records, 4);
    AppendNumber(bytes, static_cast<std::size_t>(header), 2);
    AppendNumber(bytes, static_cast<std::size_t>(record), 2);
    bytes += QByteArray(17, '\0');
    bytes += static_cast<char>(codePageMark);
    bytes += QByteArray(2, '\0');
    for (const Column& column : columns) {
        bytes += QByteArray(column.name).leftJustified(11, '\0', true);
        bytes += column.type;
        bytes += QByteArray(4, '\0');
        bytes += static_cast<char>(column.width);
        bytes += static_cast<char>(column.decimals);
        bytes += QByteArray(14, '\0');
    }
    bytes += '\x0D';
    bytes.resize(header, '\0');
    return bytes;
}

QByteArray DbfBytes::Make() const {
    QByteArray bytes = Head(rows.size());
    for (std::size_t row = 0; row < rows.size(); ++row) {
        bytes += deleted.contains(row) ? '*' : ' ';
        for (std::size_t i = 0; i < columns.size(); ++i)
            bytes += Padded(columns[i], rows[row][i]);
    }
    if (endMark)
        bytes += '\x1A';
    return bytes;
}

std::vector<QByteArray> DbfRow(const std::vector<QString>& values) {
    std::vector<QByteArray> row;
    for (const QString& value : values)
        row.push_back(EncodeWindows1250(value));
    return row;
}
