#include "core/import/wak/SqlServerRows.h"

#include "core/base/SameName.h"
#include "core/import/wak/Odbc.h"

#include <algorithm>
#include <array>
#include <bit>
#include <limits>

namespace {

constexpr std::int64_t NullCell = std::numeric_limits<std::int64_t>::min();
/// A value that a cell cannot hold.
constexpr std::int64_t BeyondCell = NullCell + 1;
constexpr std::int64_t AliveRows = 1000;
constexpr std::size_t FirstBuffer = 4096;

/// The value that was fetched, or nothing for a null.
template <class T>
bool Fetch(SQLHSTMT statement, std::string_view source, SQLUSMALLINT number, SQLSMALLINT type, T& value) {
    SQLLEN length = 0;
    if (!odbc::Succeeded(SQLGetData(statement, number, type, &value, sizeof(value), &length)))
        odbc::Raise(SQL_HANDLE_STMT, statement, "read", source);
    return length != SQL_NULL_DATA;
}

} // namespace

void CSqlServerRows::Close() {
    *this = CSqlServerRows();
}

void CSqlServerRows::Read(void* statement, std::string_view source, const std::vector<std::string>& columns,
                          const std::function<void()>& alive) {
    Close();
    try {
        m_source = source;
        Describe(statement, columns);
        for (;;) {
            const SQLRETURN result = SQLFetch(statement);
            if (result == SQL_NO_DATA)
                break;
            if (!odbc::Succeeded(result))
                odbc::Raise(SQL_HANDLE_STMT, statement, "fetch", source);
            ReadRow(statement, source);
            if (alive && m_count % AliveRows == 0)
                alive();
        }
        // What follows the rows is not wanted, but an error among it is.
        for (SQLRETURN result; (result = SQLMoreResults(statement)) != SQL_NO_DATA;) {
            if (!odbc::Succeeded(result))
                odbc::Raise(SQL_HANDLE_STMT, statement, "execute", source);
        }
        m_buffer = {};
        m_cells.shrink_to_fit();
        m_open = true;
    } catch (...) {
        Close();
        throw;
    }
}

void CSqlServerRows::Describe(void* statement, const std::vector<std::string>& columns) {
    SQLSMALLINT count = 0;
    // A routine's counts and messages come as answers without columns, before its rows.
    while (odbc::Succeeded(SQLNumResultCols(statement, &count)) && count == 0) {
        const SQLRETURN result = SQLMoreResults(statement);
        if (result == SQL_NO_DATA)
            throw ComError("open", m_source, ResultCode::ObjectClosed, QStringLiteral("Sada záznamů není otevřena."));
        if (!odbc::Succeeded(result))
            odbc::Raise(SQL_HANDLE_STMT, statement, "execute", m_source);
    }
    for (SQLSMALLINT number = 1; number <= count; ++number) {
        std::array<SQLWCHAR, 256> wide{};
        SQLSMALLINT type = 0;
        if (!odbc::Succeeded(SQLDescribeColW(statement, static_cast<SQLUSMALLINT>(number), wide.data(), wide.size(),
                                             nullptr, &type, nullptr, nullptr, nullptr)))
            odbc::Raise(SQL_HANDLE_STMT, statement, "describe", m_source);
        const std::string name = QString::fromUtf16(reinterpret_cast<const char16_t*>(wide.data())).toStdString();
        const auto same = [&](std::string_view other) { return SameName(other, name); };
        // The first of equal names counts, as everywhere.
        if (std::none_of(columns.begin(), columns.end(), same) ||
            std::any_of(m_columns.begin(), m_columns.end(), [&](const Column& column) { return same(column.name); }))
            continue;
        Kind kind = Kind::Text;
        switch (type) {
        case SQL_BIT:
            kind = Kind::Bit;
            break;
        case SQL_TINYINT:
        case SQL_SMALLINT:
        case SQL_INTEGER:
        case SQL_BIGINT:
            kind = Kind::Whole;
            break;
        case SQL_DECIMAL:
        case SQL_NUMERIC:
            kind = Kind::Decimal;
            break;
        case SQL_REAL:
        case SQL_FLOAT:
        case SQL_DOUBLE:
            kind = Kind::Real;
            break;
        case SQL_TYPE_DATE:
        case SQL_TYPE_TIMESTAMP:
            kind = Kind::Date;
            break;
        default:
            break;
        }
        m_columns.push_back({name, kind, static_cast<std::uint16_t>(number)});
    }
}

void CSqlServerRows::ReadRow(void* statement, std::string_view source) {
    for (std::size_t column = 0; column < m_columns.size(); ++column)
        m_cells.push_back(ReadCell(statement, source, column));
    ++m_count;
}

std::int64_t CSqlServerRows::ReadCell(void* statement, std::string_view source, std::size_t column) {
    const SQLUSMALLINT number = m_columns[column].number;
    switch (m_columns[column].kind) {
    case Kind::Bit:
    case Kind::Whole: {
        SQLBIGINT value = 0;
        if (!Fetch(statement, source, number, SQL_C_SBIGINT, value))
            return NullCell;
        return value <= BeyondCell ? KeepBeyond(QString::number(value)) : static_cast<std::int64_t>(value);
    }
    case Kind::Real: {
        double value = 0;
        if (!Fetch(statement, source, number, SQL_C_DOUBLE, value))
            return NullCell;
        return std::bit_cast<std::int64_t>(value + 0.0); // turns −0.0, which is NullCell, into 0.0
    }
    case Kind::Decimal: {
        // As text, since a binary fraction is not exact.
        std::array<char, 64> text{};
        if (!Fetch(statement, source, number, SQL_C_CHAR, text))
            return NullCell;
        const Currency value = ParseCurrency(QString::fromLatin1(text.data()));
        const bool fits = value.IsValid() && value.count > BeyondCell;
        return fits ? value.count : KeepBeyond(QString::fromLatin1(text.data()));
    }
    case Kind::Date: {
        SQL_TIMESTAMP_STRUCT value{};
        if (!Fetch(statement, source, number, SQL_C_TYPE_TIMESTAMP, value))
            return NullCell;
        const DateTime date =
            DateTime::FromDay(value.year, value.month, value.day, value.hour, value.minute, value.second);
        return date.IsValid() ? date.SecondsSince1970()
                              : KeepBeyond(QString::asprintf("%i-%02i-%02i", value.year, value.month, value.day));
    }
    case Kind::Text:
        break;
    }
    return ReadText(statement, source, column);
}

std::int64_t CSqlServerRows::KeepBeyond(const QString& value) {
    m_beyond[m_cells.size()] = value;
    return BeyondCell;
}

/// Answers the place in m_texts of the text's length and characters.
std::int64_t CSqlServerRows::ReadText(void* statement, std::string_view source, std::size_t column) {
    m_buffer.resize(std::max(m_buffer.size(), FirstBuffer));
    std::size_t used = 0;
    for (;;) {
        SQLLEN length = 0;
        const std::size_t room = m_buffer.size() - used;
        const SQLRETURN result = SQLGetData(statement, m_columns[column].number, SQL_C_WCHAR, m_buffer.data() + used,
                                            static_cast<SQLLEN>(room * sizeof(char16_t)), &length);
        if (!odbc::Succeeded(result))
            odbc::Raise(SQL_HANDLE_STMT, statement, "read", source);
        if (length == SQL_NULL_DATA)
            return NullCell;
        // What did not fit comes with the next call; the end of a part is marked by a zero.
        if (length != SQL_NO_TOTAL && static_cast<std::size_t>(length) < room * sizeof(char16_t)) {
            used += static_cast<std::size_t>(length) / sizeof(char16_t);
            break;
        }
        used += room - 1;
        m_buffer.resize(2 * m_buffer.size());
    }
    const QByteArray text = QStringView(m_buffer.data(), static_cast<qsizetype>(used)).toUtf8();
    const std::string_view bytes(text.constData(), static_cast<std::size_t>(text.size()));
    const std::size_t width = m_columns.size();
    if (m_cells.size() >= width) {
        const std::int64_t above = m_cells[m_cells.size() - width];
        if (above != NullCell && m_texts.At(above) == bytes)
            return above;
    }
    return m_texts.Add(bytes);
}

void CSqlServerRows::MoveNext() {
    if (get_EOF())
        throw ComError("recordset", m_source, ResultCode::AtEnd, QStringLiteral("Žádný záznam není aktuální."));
    ++m_row;
}

Variant CSqlServerRows::get_Collect(std::string_view name) const {
    const auto column = std::find_if(m_columns.begin(), m_columns.end(),
                                     [&](const Column& candidate) { return SameName(candidate.name, name); });
    if (column == m_columns.end())
        throw ComError("recordset", std::string(name), ResultCode::NoSuchField,
                       QStringLiteral("Položku nelze v kolekci nalézt: ") +
                           QString::fromUtf8(name.data(), name.size()));
    if (get_EOF())
        throw ComError("recordset", m_source, ResultCode::AtEnd, QStringLiteral("Žádný záznam není aktuální."));
    const std::size_t place =
        static_cast<std::size_t>(m_row) * m_columns.size() + static_cast<std::size_t>(column - m_columns.begin());
    const std::int64_t cell = m_cells[place];
    if (cell == NullCell)
        return {};
    if (cell == BeyondCell)
        return m_beyond.at(place);
    switch (column->kind) {
    case Kind::Whole:
        if (cell != static_cast<std::int32_t>(cell))
            return QString::number(cell);
        return static_cast<std::int32_t>(cell);
    case Kind::Bit:
        return cell != 0;
    case Kind::Decimal:
        return Currency::FromCount(cell);
    case Kind::Real:
        return std::bit_cast<double>(cell);
    case Kind::Date:
        return DateTime::FromSeconds(cell);
    case Kind::Text:
        break;
    }
    return m_texts.Text(cell);
}
