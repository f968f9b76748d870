#pragma once

#include "core/base/PackedTexts.h"
#include "core/base/Variant.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// The rows of a query to the server, read whole when it is opened so that their number is known, packed into eight
/// bytes a cell and the texts once for equal neighbours. With a current record, under ADO's names; read-only.
class CSqlServerRows {
public:
    /// Reads the answer of an executed statement (an ODBC handle) to its end: the columns of these names, in any case.
    /// `alive` is called every 1,000 rows and may throw. Raises ComError, with nothing kept, for whatever the server
    /// or the line did wrong, also after the last row.
    void Read(void* statement, std::string_view source, const std::vector<std::string>& columns,
              const std::function<void()>& alive);
    void Close();
    bool get_State() const { return m_open; }

    bool get_EOF() const { return m_row >= m_count; }
    std::int64_t get_RecordCount() const { return m_count; }
    void MoveNext();
    /// Of the current row, from 1.
    std::int64_t Position() const { return m_row + 1; }
    /// A number that the program's types cannot hold comes as a text. Raises ComError for a column that was not asked
    /// for or that the server did not send, and at the end.
    Variant get_Collect(std::string_view column) const;

private:
    enum class Kind : std::uint8_t { Whole, Bit, Decimal, Real, Date, Text };
    struct Column {
        std::string name;
        Kind kind;
        std::uint16_t number;
    };

    void Describe(void* statement, const std::vector<std::string>& columns);
    void ReadRow(void* statement, std::string_view source);
    std::int64_t ReadCell(void* statement, std::string_view source, std::size_t column);
    std::int64_t KeepBeyond(const QString& value);
    std::int64_t ReadText(void* statement, std::string_view source, std::size_t column);

    std::string m_source;
    std::vector<Column> m_columns;
    std::vector<std::int64_t> m_cells;
    CPackedTexts m_texts;
    /// The values that a cell cannot hold, by their place in m_cells.
    std::map<std::size_t, QString> m_beyond;
    std::u16string m_buffer;
    std::int64_t m_count = 0;
    std::int64_t m_row = 0;
    bool m_open = false;
};

using SqlServerRowsPtr = std::shared_ptr<CSqlServerRows>;
