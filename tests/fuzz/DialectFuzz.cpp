#include "core/store/Engine.h"

#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace {

#define REQUIRE(condition)                                                                                             \
    if (!(condition)) {                                                                                                \
        std::fprintf(stderr, "%s\n", #condition);                                                                      \
        std::abort();                                                                                                  \
    }

/// The delivered database with a few rows, in a file that is gone with the process.
std::unique_ptr<CEngine> OpenSample() {
    char path[] = "/tmp/dialect-fuzz-XXXXXX";
    REQUIRE(close(mkstemp(path)) == 0);
    std::ofstream(path, std::ios::binary)
        << std::ifstream(KUVEL_BIN_DIR "/database/Kuvel.mdb", std::ios::binary).rdbuf();
    auto engine = std::make_unique<CEngine>(path);
    sqlite::Execute(engine->Handle(),
                    "INSERT INTO Cover (cover_name, cover_mat, cover_weight) VALUES ('čaj', 7, 5000), ('box', 0, "
                    "9223372036854775807), (NULL, NULL, NULL); INSERT INTO Move (move_num, move_date) VALUES ('1', "
                    "'2012-04-01 10:00:00'), ('2', 'x'); INSERT INTO Move_Prod (move_id, mvprod_qty) VALUES (1, 1), "
                    "(2, -7); INSERT INTO Move_Cover (move_id, cover_id, mvcover_qty) VALUES (1, 1, 3), (1, 2, "
                    "99999), (2, 3, 5); INSERT INTO TmpID VALUES (1)");
    unlink(path);
    return engine;
}

/// Texts that the translator lets through, but that nest deeper than the engine's parser bears.
bool IsTooDeep(const ComError& error) {
    return error.Description() == QStringLiteral("parser stack overflow");
}

void CheckTranslation(const CEngine::Prepared& prepared, const jet::Translation& fresh) {
    // The cache gave what this very text means.
    REQUIRE(prepared.translation.sql == fresh.sql && prepared.translation.rowSql == fresh.rowSql &&
            prepared.translation.parameters.size() == fresh.parameters.size() &&
            prepared.translation.columns.size() == fresh.columns.size());
    REQUIRE(fresh.sql.find("--") == std::string::npos && fresh.sql.find("/*") == std::string::npos);
    sqlite3_stmt* const statement = prepared.statement.Get();
    REQUIRE((sqlite3_stmt_readonly(statement) == 0) == (fresh.kind == jet::Translation::Kind::Command));
    REQUIRE(sqlite3_bind_parameter_count(statement) == static_cast<int>(fresh.parameters.size()));
    const int columns = fresh.kind == jet::Translation::Kind::Rows     ? static_cast<int>(fresh.columns.size())
                        : fresh.kind == jet::Translation::Kind::Keyset ? 1
                                                                       : 0;
    REQUIRE(sqlite3_column_count(statement) == columns);
}

} // namespace

/// One statement of any bytes; led by "?", a criterion on the covers.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::unique_ptr<CEngine> engine = OpenSample();
    std::string_view text(reinterpret_cast<const char*>(data), size);
    const bool isCriterion = !text.empty() && text.front() == '?';
    text.remove_prefix(isCriterion ? 1 : 0);
    CEngine::PreparedPtr prepared;
    try {
        prepared = isCriterion ? engine->PrepareCriterion(text, "Cover") : engine->Prepare(text);
    } catch (const ComError& error) {
        REQUIRE(error.Text() == text);
        // What the engine refuses should have been refused before.
        REQUIRE(error.Operation() == "SQL" || IsTooDeep(error));
        return 0;
    }
    const jet::Schema& schema = engine->Tables();
    CheckTranslation(*prepared, isCriterion ? jet::TranslateCriterion(text, *schema.FindTable("Cover"), schema)
                                            : jet::Translate(text, schema));
    if (prepared->translation.kind == jet::Translation::Kind::Command)
        return 0;
    try {
        for (int rows = 0; rows < 100 && prepared->statement.Step(); ++rows) {
        }
        prepared->statement.Reset();
    } catch (const ComError& error) {
        // A number out of range is known only when it is met.
        REQUIRE(error.Description() == QStringLiteral("Hodnota je mimo rozsah měny.") ||
                error.Description() == QStringLiteral("integer overflow"));
    }
    return 0;
}
