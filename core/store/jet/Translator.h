#pragma once

#include "core/store/jet/Lexer.h"
#include "core/store/jet/Schema.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace jet {

/// How the parameter of a translated statement is made from the literals of the text.
struct Parameter {
    enum class Kind : std::uint8_t {
        Number, // an integer or decimal as it stands
        Scaled, // a number beside a currency: its ten-thousandths
        Text,
        Date,     // "YYYY-MM-DD HH:MM:SS"
        DayStart, // "YYYY-MM-DD" of a date, moved by `shift` days and by the number in `days`
    };
    Kind kind;
    int literal;
    int shift = 0;
    int days = -1; // a literal
    int daysSign = 1;
};

struct ResultColumn {
    std::string name;
    ValueType type;
    /// A column of the table under its own name, which can be written.
    bool stored = false;
};

/// One statement of the dialect in the engine's SQL. `?1`, `?2` … are `parameters`, in order.
struct Translation {
    enum class Kind : std::uint8_t {
        Command, // UPDATE or DELETE: run `sql`
        Rows,    // a SELECT whose rows are read whole from `sql`
        Keyset,  // a SELECT of one table: `sql` gives the row ids in order, `rowSql` the row of the id ?1
    };
    Kind kind = Kind::Command;
    std::string sql;
    std::string rowSql;
    std::string aheadSql; // as `sql`, each row id followed by the row
    std::string table;    // of a keyset, or changed by a command
    std::vector<ResultColumn> columns;
    std::vector<Parameter> parameters;
};

/// Raises ComError, with the text in it, for what the dialect or the schema does not know; nothing is passed on.
Translation Translate(std::string_view sql, const Schema& schema);

/// A condition on one table, as `sql` giving the row ids of the rows that meet it.
Translation TranslateCriterion(std::string_view criterion, const Table& table, const Schema& schema);

/// The whole table, opened by its name: a keyset of all rows.
Translation TranslateTable(const Table& table);

} // namespace jet
