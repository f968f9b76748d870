#include "tests/support/TdsStream.h"

#include "core/base/CodePage.h"

#include <QDateTime>

#include <cstring>
#include <map>

namespace {

constexpr int PacketSize = 4096;
constexpr int HeaderSize = 8;
/// Czech, case ignored.
const QByteArray Collation("\x05\x04\xd0\x00\x00", 5);

/// The two numbers of "decimal(12,4)".
std::pair<int, int> PrecisionAndScale(const std::string& type) {
    int precision = 18;
    int scale = 0;
    std::sscanf(type.c_str(), "decimal(%d,%d)", &precision, &scale);
    return {precision, scale};
}

/// "-12.5" with scale 4 is −125000.
__int128 Scaled(const std::string& text, int scale) {
    __int128 value = 0;
    int decimals = -1;
    for (const char c : text) {
        if (c == '.')
            decimals = 0;
        else if (c != '-') {
            value = value * 10 + (c - '0');
            decimals += decimals >= 0 ? 1 : 0;
        }
    }
    for (decimals = std::max(decimals, 0); decimals < scale; ++decimals)
        value *= 10;
    return text[0] == '-' ? -value : value;
}

int IntegerSize(const std::string& type) {
    return type == "bigint" ? 8 : type == "int" ? 4 : type == "smallint" ? 2 : 0;
}

} // namespace

void TdsStream::Number(std::uint64_t value, int size) {
    for (int i = 0; i < size; ++i)
        bytes.append(static_cast<char>(value >> (8 * i)));
}

void TdsStream::Text(const QString& text, int lengthSize) {
    Number(static_cast<std::uint64_t>(text.size()), lengthSize);
    bytes.append(reinterpret_cast<const char*>(text.utf16()), 2 * text.size());
}

void TdsStream::Error(int number, const QString& text) {
    TdsStream body;
    body.Number(static_cast<std::uint64_t>(number), 4);
    body.Number(1, 1);
    body.Number(number == 18456 ? 14 : 16, 1);
    body.Text(text, 2);
    body.Text(QStringLiteral("WAKSERVER"), 1);
    body.Text({}, 1);
    body.Number(1, 4);
    Number(0xAA, 1);
    Number(static_cast<std::uint64_t>(body.bytes.size()), 2);
    bytes += body.bytes;
}

void TdsStream::Done(std::uint8_t token, int status, std::size_t rows) {
    Number(token, 1);
    Number(static_cast<std::uint64_t>(status), 2);
    Number(0xC1, 2);
    Number(rows, 8);
}

void TdsStream::LoginDone(const QString& database) {
    const auto change = [&](int type, const TdsStream& value) {
        Number(0xE3, 1);
        Number(static_cast<std::uint64_t>(1 + value.bytes.size()), 2);
        Number(static_cast<std::uint64_t>(type), 1);
        bytes += value.bytes;
    };
    TdsStream name;
    name.Text(database, 1);
    name.Text(QStringLiteral("master"), 1);
    change(1, name);
    TdsStream collation;
    collation.Number(static_cast<std::uint64_t>(Collation.size()), 1);
    collation.bytes += Collation;
    collation.Number(0, 1);
    change(7, collation);
    TdsStream size;
    size.Text(QString::number(PacketSize), 1);
    size.Text(QString::number(PacketSize), 1);
    change(4, size);
    TdsStream acknowledged;
    acknowledged.Number(1, 1);
    acknowledged.bytes += QByteArray("\x74\x00\x00\x04", 4);
    acknowledged.Text(QStringLiteral("Microsoft SQL Server"), 1);
    acknowledged.Number(0x0B, 4);
    Number(0xAD, 1);
    Number(static_cast<std::uint64_t>(acknowledged.bytes.size()), 2);
    bytes += acknowledged.bytes;
    Done(0xFD, 0, 0);
}

void TdsStream::Columns(const std::vector<TdsTable::Column>& columns) {
    Number(0x81, 1);
    Number(columns.size(), 2);
    for (const TdsTable::Column& column : columns) {
        const std::string& type = column.type;
        Number(0, 4);
        Number(9, 2); // may be null, may be written
        static const std::map<std::string, int> fixed = {{"int", 0x0426},  {"smallint", 0x0226}, {"bigint", 0x0826},
                                                         {"bit", 0x0168},  {"float", 0x086D},    {"datetime", 0x086F},
                                                         {"money", 0x086E}};
        if (const auto found = fixed.find(type); found != fixed.end()) {
            Number(static_cast<std::uint64_t>(found->second), 2);
        } else if (type == "date") {
            Number(0x28, 1);
        } else if (type.starts_with("decimal")) {
            const auto [precision, scale] = PrecisionAndScale(type);
            Number(0x116A, 2);
            Number(static_cast<std::uint64_t>(precision), 1);
            Number(static_cast<std::uint64_t>(scale), 1);
        } else {
            Number(type == "varchar" ? 0xA7 : 0xE7, 1);
            Number(type == "nvarchar(max)" ? 0xFFFF : 8000, 2);
            bytes += Collation;
        }
        Text(QString::fromStdString(column.name), 1);
    }
}

void TdsStream::Row(const std::vector<TdsTable::Column>& columns, const TdsTable::Row& row) {
    Number(0xD1, 1);
    for (std::size_t i = 0; i < columns.size(); ++i)
        Cell(columns[i].type, row[i]);
}

void TdsStream::Cell(const std::string& type, const std::optional<std::string>& value) {
    const bool isText = type.ends_with("varchar");
    if (!value) {
        if (type == "nvarchar(max)")
            Number(~std::uint64_t{0}, 8);
        else
            Number(isText ? 0xFFFF : 0, isText ? 2 : 1);
        return;
    }
    if (isText || type == "nvarchar(max)") {
        const QString text = QString::fromStdString(*value);
        const QByteArray raw = type == "varchar"
                                   ? EncodeWindows1250(text)
                                   : QByteArray(reinterpret_cast<const char*>(text.utf16()), 2 * text.size());
        const auto size = static_cast<std::uint64_t>(raw.size());
        if (isText) {
            Number(size, 2);
            bytes += raw;
            return;
        }
        Number(size, 8);
        if (size > 0)
            Number(size, 4);
        bytes += raw;
        Number(0, 4);
    } else if (const int size = IntegerSize(type)) {
        Number(static_cast<std::uint64_t>(size), 1);
        Number(static_cast<std::uint64_t>(std::stoll(*value)), size);
    } else if (type == "bit") {
        Number(1, 1);
        Number(*value == "1", 1);
    } else if (type == "float") {
        const double number = std::stod(*value);
        std::uint64_t bits = 0;
        std::memcpy(&bits, &number, sizeof(bits));
        Number(8, 1);
        Number(bits, 8);
    } else if (type == "datetime" || type == "date") {
        const QString text = QString::fromStdString(*value);
        const QDate day = QDate::fromString(text.left(10), Qt::ISODate);
        Number(type == "date" ? 3 : 8, 1);
        if (type == "date") {
            Number(static_cast<std::uint64_t>(QDate(1, 1, 1).daysTo(day)), 3);
            return;
        }
        Number(static_cast<std::uint64_t>(QDate(1900, 1, 1).daysTo(day)), 4);
        const QTime time = QTime::fromString(text.mid(11), Qt::ISODateWithMs);
        Number(static_cast<std::uint64_t>((time.msecsSinceStartOfDay() * 3LL + 5) / 10), 4);
    } else if (type == "money") {
        const auto count = static_cast<std::uint64_t>(Scaled(*value, 4));
        Number(8, 1);
        Number(count >> 32, 4);
        Number(count, 4);
    } else {
        const __int128 scaled = Scaled(*value, PrecisionAndScale(type).second);
        const auto magnitude = static_cast<unsigned __int128>(scaled < 0 ? -scaled : scaled);
        Number(17, 1);
        Number(scaled < 0 ? 0 : 1, 1);
        Number(static_cast<std::uint64_t>(magnitude), 8);
        Number(static_cast<std::uint64_t>(magnitude >> 64), 8);
    }
}

QByteArray TdsPackets(const QByteArray& message, bool whole) {
    QByteArray packets;
    qsizetype at = 0;
    std::uint8_t number = 1;
    do {
        const QByteArray part = message.mid(at, PacketSize - HeaderSize);
        at += part.size();
        const auto length = static_cast<std::uint16_t>(part.size() + HeaderSize);
        packets.append(4);
        packets.append(whole && at >= message.size() ? 1 : 0);
        packets.append(static_cast<char>(length >> 8));
        packets.append(static_cast<char>(length));
        packets.append(2, 0);
        packets.append(static_cast<char>(number++));
        packets.append('\0');
        packets += part;
    } while (at < message.size());
    return packets;
}
