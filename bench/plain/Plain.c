#include "bench/plain/Plain.h"

#include <unicode/uchar.h>
#include <unicode/ucol.h>
#include <unicode/ustring.h>
#include <unicode/utf8.h>

#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>

static void check(sqlite3* db, int result) {
    if (result != SQLITE_OK && result != SQLITE_DONE && result != SQLITE_ROW) {
        fprintf(stderr, "%s\n", sqlite3_errmsg(db));
        abort();
    }
}

void plain_exec(sqlite3* db, const char* sql) {
    check(db, sqlite3_exec(db, sql, NULL, NULL, NULL));
}

sqlite3_stmt* plain_prepare(sqlite3* db, const char* sql) {
    sqlite3_stmt* statement = NULL;
    check(db, sqlite3_prepare_v3(db, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, NULL));
    return statement;
}

sqlite3* plain_open(const char* path) {
    sqlite3* db = NULL;
    check(db, sqlite3_open_v2(path, &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, NULL));
    sqlite3_busy_timeout(db, 5000);
    plain_exec(db, "PRAGMA journal_mode = TRUNCATE; PRAGMA synchronous = FULL;");
    return db;
}

void plain_close(sqlite3* db) {
    sqlite3_close(db);
}

static int64_t now_ms(void) {
    struct timespec t;
    clock_gettime(CLOCK_MONOTONIC, &t);
    return (int64_t)t.tv_sec * 1000 + t.tv_nsec / 1000000;
}

static void run(sqlite3* db, sqlite3_stmt* s) {
    check(db, sqlite3_step(s));
    sqlite3_reset(s);
}

/* Of one product, or with 0 of all. */
static long recompute(sqlite3* db, int64_t product) {
    sqlite3_stmt* begin = plain_prepare(db, "BEGIN IMMEDIATE");
    sqlite3_stmt* commit = plain_prepare(db, "COMMIT");
    sqlite3_stmt* lines = plain_prepare(
        db, product == 0 ? "SELECT mvprod_id, Move_Prod.move_id, prod_id, mvprod_qty, move_date FROM Move_Prod JOIN "
                           "Move ON Move.move_id = Move_Prod.move_id"
                         : "SELECT mvprod_id, Move_Prod.move_id, prod_id, mvprod_qty, move_date FROM Move_Prod JOIN "
                           "Move ON Move.move_id = Move_Prod.move_id WHERE prod_id = ?");
    if (product != 0)
        sqlite3_bind_int64(lines, 1, product);
    sqlite3_stmt* delete_old = plain_prepare(db, "DELETE FROM Move_Cover WHERE mvprod_id = ?");
    sqlite3_stmt* dates =
        plain_prepare(db, "SELECT dt_id, dt_from FROM Prod_CoverDT WHERE prod_id = ? ORDER BY dt_from");
    sqlite3_stmt* covers =
        plain_prepare(db, "SELECT cp_usealways, cp_usefrom, cp_useto, cp_qtyprod, cp_qtycover, cover_id, "
                          "cover_type, cover_org, cover_pay FROM Prod_Cover WHERE dt_id = ?");
    sqlite3_stmt* insert =
        plain_prepare(db, "INSERT INTO Move_Cover (mvprod_id, move_id, cover_id, mvcover_qty, cover_type, "
                          "cover_org, cover_pay) VALUES (?, ?, ?, ?, ?, ?, ?)");
    struct line {
        int64_t id, move, product, quantity;
        char date[20];
    };
    /* The lines are read first: the loop changes the database under them. */
    size_t room = 1024, count = 0;
    struct line* all = malloc(room * sizeof *all);
    while (sqlite3_step(lines) == SQLITE_ROW) {
        if (count == room)
            all = realloc(all, (room *= 2) * sizeof *all);
        struct line* l = &all[count++];
        l->id = sqlite3_column_int64(lines, 0);
        l->move = sqlite3_column_int64(lines, 1);
        l->product = sqlite3_column_int64(lines, 2);
        l->quantity = sqlite3_column_int64(lines, 3);
        snprintf(l->date, sizeof l->date, "%s", (const char*)sqlite3_column_text(lines, 4));
    }
    sqlite3_finalize(lines);
    run(db, begin);
    int64_t start = now_ms(), changes = sqlite3_total_changes64(db);
    for (size_t i = 0; i < count; ++i) {
        const struct line* l = &all[i];
        sqlite3_bind_int64(delete_old, 1, l->id);
        run(db, delete_old);
        int64_t definition = 0;
        sqlite3_bind_int64(dates, 1, l->product);
        while (sqlite3_step(dates) == SQLITE_ROW) {
            if (strcmp(l->date, (const char*)sqlite3_column_text(dates, 1)) < 0)
                break;
            definition = sqlite3_column_int64(dates, 0);
        }
        sqlite3_reset(dates);
        sqlite3_bind_int64(covers, 1, definition);
        while (definition != 0 && sqlite3_step(covers) == SQLITE_ROW) {
            if (!sqlite3_column_int(covers, 0) &&
                (sqlite3_column_int64(covers, 1) > l->quantity || l->quantity > sqlite3_column_int64(covers, 2)))
                continue;
            int64_t per = sqlite3_column_int64(covers, 3), factor = 1;
            if (per >= 0)
                factor = per == 0 ? 0 : l->quantity / per;
            sqlite3_bind_int64(insert, 1, l->id);
            sqlite3_bind_int64(insert, 2, l->move);
            sqlite3_bind_int64(insert, 3, sqlite3_column_int64(covers, 5));
            sqlite3_bind_int64(insert, 4, factor * sqlite3_column_int64(covers, 4));
            sqlite3_bind_int64(insert, 5, sqlite3_column_int64(covers, 6));
            sqlite3_bind_int64(insert, 6, sqlite3_column_int64(covers, 7));
            sqlite3_bind_int64(insert, 7, sqlite3_column_int64(covers, 8));
            run(db, insert);
        }
        sqlite3_reset(covers);
        if (sqlite3_total_changes64(db) - changes >= 5000 || now_ms() - start >= 1000) {
            run(db, commit);
            run(db, begin);
            start = now_ms();
            changes = sqlite3_total_changes64(db);
        }
    }
    run(db, commit);
    free(all);
    sqlite3_stmt* done[] = {begin, commit, delete_old, dates, covers, insert};
    for (size_t i = 0; i < sizeof done / sizeof *done; ++i)
        sqlite3_finalize(done[i]);
    return (long)count;
}

long plain_recompute(sqlite3* db) {
    return recompute(db, 0);
}

long plain_change_packaging(sqlite3* db, long row, long product, long pieces) {
    sqlite3_stmt* change = plain_prepare(db, "UPDATE Prod_Cover SET cp_qtycover = ? WHERE cp_id = ?");
    sqlite3_bind_int64(change, 1, pieces);
    sqlite3_bind_int64(change, 2, row);
    run(db, change);
    sqlite3_finalize(change);
    return recompute(db, product);
}

void plain_repeat(sqlite3* db, long count) {
    plain_exec(db, "BEGIN IMMEDIATE");
    sqlite3_stmt* s = plain_prepare(db, "DELETE FROM Move_Cover WHERE mvprod_id = ?");
    for (long i = 0; i < count; ++i) {
        sqlite3_bind_int64(s, 1, 1000000000 + i);
        run(db, s);
    }
    sqlite3_finalize(s);
    plain_exec(db, "COMMIT");
}

static void sort_key(sqlite3_context* context, int count, sqlite3_value** values) {
    (void)count;
    UCollator* collator = sqlite3_user_data(context);
    UChar wide[512];
    uint8_t key[2048];
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = 0;
    u_strFromUTF8(wide, 512, &length, (const char*)sqlite3_value_text(values[0]), sqlite3_value_bytes(values[0]),
                  &status);
    const int32_t size = ucol_getSortKey(collator, wide, length, key, sizeof key);
    sqlite3_result_blob(context, key, size, SQLITE_TRANSIENT);
}

/* All keys in order, then the first 50 rows, each by its key. */
static long ordered(sqlite3* db, const char* keys_sql, const char* row_sql) {
    UErrorCode status = U_ZERO_ERROR;
    UCollator* collator = ucol_open("cs", &status);
    ucol_setStrength(collator, UCOL_SECONDARY);
    sqlite3_create_function(db, "sort_key", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC, collator, sort_key, NULL, NULL);
    sqlite3_stmt* keys = plain_prepare(db, keys_sql);
    size_t room = 1024, count = 0;
    int64_t* all = malloc(room * sizeof *all);
    while (sqlite3_step(keys) == SQLITE_ROW) {
        if (count == room)
            all = realloc(all, (room *= 2) * sizeof *all);
        all[count++] = sqlite3_column_int64(keys, 0);
    }
    sqlite3_finalize(keys);
    sqlite3_stmt* row = plain_prepare(db, row_sql);
    for (size_t i = 0; i < 50 && i < count; ++i) {
        sqlite3_bind_int64(row, 1, all[i]);
        check(db, sqlite3_step(row));
        for (int c = 0; c < sqlite3_column_count(row); ++c)
            sqlite3_column_text(row, c);
        sqlite3_reset(row);
    }
    sqlite3_finalize(row);
    free(all);
    ucol_close(collator);
    return (long)count;
}

long plain_keyset(sqlite3* db) {
    return ordered(db, "SELECT move_id FROM Move ORDER BY sort_key(move_num), move_id",
                   "SELECT * FROM Move WHERE move_id = ?");
}

long plain_covers(sqlite3* db) {
    return ordered(db, "SELECT cover_id FROM Cover WHERE deleted = 0 ORDER BY sort_key(cover_name), cover_id",
                   "SELECT * FROM Cover WHERE cover_id = ?");
}

void plain_delete_covers(sqlite3* db, long count) {
    plain_exec(db, "DELETE FROM TmpID");
    sqlite3_stmt* add = plain_prepare(db, "INSERT INTO TmpID (id) VALUES (?)");
    plain_exec(db, "BEGIN IMMEDIATE");
    for (long id = 1; id <= count; ++id) {
        sqlite3_bind_int64(add, 1, id);
        run(db, add);
    }
    plain_exec(db, "COMMIT");
    sqlite3_finalize(add);
    plain_exec(db, "DELETE FROM CoverDiscard WHERE cover_id IN (SELECT id FROM TmpID)");
    plain_exec(db, "DELETE FROM CompCover_Item WHERE cover_id IN (SELECT id FROM TmpID)");
    plain_exec(db, "UPDATE Cover SET deleted = 1 WHERE cover_id IN (SELECT id FROM TmpID)");
    plain_covers(db);
}

struct wanted {
    UChar32 folded[256];
    int32_t length;
    int part;
};

static int32_t fold(const char* text, int32_t size, UChar32* folded, int32_t room) {
    int32_t length = 0;
    for (int32_t at = 0; at < size && length < room;) {
        UChar32 c = 0;
        U8_NEXT_OR_FFFD(text, at, size, c);
        folded[length++] = c < 0x80 ? (c >= 'A' && c <= 'Z' ? c + 32 : c) : u_foldCase(c, U_FOLD_CASE_DEFAULT);
    }
    return length;
}

/* Whether the folded text stands in the name, or is the name. */
static void meets(sqlite3_context* context, int count, sqlite3_value** values) {
    (void)count;
    const struct wanted* wanted = sqlite3_user_data(context);
    const char* text = (const char*)sqlite3_value_text(values[0]);
    if (text == NULL)
        return;
    UChar32 name[256];
    const int32_t length = fold(text, sqlite3_value_bytes(values[0]), name, 256);
    const size_t bytes = (size_t)wanted->length * sizeof *name;
    int found = !wanted->part && length == wanted->length && memcmp(name, wanted->folded, bytes) == 0;
    for (int32_t start = 0; wanted->part && !found && start + wanted->length <= length; ++start)
        found = memcmp(name + start, wanted->folded, bytes) == 0;
    sqlite3_result_int(context, found);
}

static sqlite3_stmt* matching(sqlite3* db, struct wanted* wanted, const char* text, int part) {
    wanted->length = fold(text, (int32_t)strlen(text), wanted->folded, 256);
    wanted->part = part;
    sqlite3_create_function(db, "meets", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC, wanted, meets, NULL, NULL);
    return plain_prepare(db, "SELECT cover_id FROM Cover WHERE deleted = 0 AND meets(cover_name)");
}

long plain_find(sqlite3* db, const char* text, int part) {
    struct wanted wanted;
    sqlite3_stmt* keys = matching(db, &wanted, text, part);
    long count = 0;
    while (sqlite3_step(keys) == SQLITE_ROW)
        ++count;
    sqlite3_finalize(keys);
    return count;
}

static void put_in_place(const char* name, const char* part, const char* with, char* result, size_t room) {
    size_t length = 0;
    for (const char* hit; (hit = strstr(name, part)) != NULL; name = hit + strlen(part))
        length += (size_t)snprintf(result + length, room - length, "%.*s%s", (int)(hit - name), name, with);
    snprintf(result + length, room - length, "%s", name);
}

static int by_key(const void* a, const void* b) {
    const int64_t x = *(const int64_t*)a, y = *(const int64_t*)b;
    return x < y ? -1 : x > y;
}

void plain_replace(sqlite3* db, const int64_t* covers, size_t count, const char* part, const char* with) {
    struct wanted wanted;
    sqlite3_stmt* keys = matching(db, &wanted, part, 1);
    size_t room = 1024, found = 0;
    int64_t* all = malloc(room * sizeof *all);
    while (sqlite3_step(keys) == SQLITE_ROW) {
        if (found == room)
            all = realloc(all, (room *= 2) * sizeof *all);
        all[found++] = sqlite3_column_int64(keys, 0);
    }
    sqlite3_finalize(keys);
    sqlite3_stmt* begin = plain_prepare(db, "BEGIN IMMEDIATE");
    sqlite3_stmt* commit = plain_prepare(db, "COMMIT");
    sqlite3_stmt* name = plain_prepare(db, "SELECT cover_name FROM Cover WHERE cover_id = ?");
    sqlite3_stmt* update = plain_prepare(db, "UPDATE Cover SET cover_name = ? WHERE cover_id = ?");
    run(db, begin);
    int64_t start = now_ms(), changes = sqlite3_total_changes64(db);
    for (size_t i = 0; i < count; ++i) {
        char result[512];
        if (bsearch(&covers[i], all, found, sizeof *all, by_key) == NULL)
            continue;
        sqlite3_bind_int64(name, 1, covers[i]);
        check(db, sqlite3_step(name));
        put_in_place((const char*)sqlite3_column_text(name, 0), part, with, result, sizeof result);
        sqlite3_reset(name);
        sqlite3_bind_text(update, 1, result, -1, SQLITE_STATIC);
        sqlite3_bind_int64(update, 2, covers[i]);
        run(db, update);
        if (sqlite3_total_changes64(db) - changes >= 5000 || now_ms() - start >= 1000) {
            run(db, commit);
            run(db, begin);
            start = now_ms();
            changes = sqlite3_total_changes64(db);
        }
    }
    run(db, commit);
    free(all);
    sqlite3_stmt* done[] = {begin, commit, name, update};
    for (size_t i = 0; i < sizeof done / sizeof *done; ++i)
        sqlite3_finalize(done[i]);
}

/* A product of two currencies, rounded to the nearest ten-thousandth, ties to even, and its sum. */
static void sum_step(sqlite3_context* context, int count, sqlite3_value** values) {
    (void)count;
    int64_t* sum = sqlite3_aggregate_context(context, sizeof *sum);
    __int128 product = (__int128)sqlite3_value_int64(values[0]) * sqlite3_value_int64(values[1]);
    int64_t quotient = (int64_t)(product / 10000), rest = (int64_t)(product % 10000);
    if (rest > 5000 || (rest == 5000 && quotient % 2))
        ++quotient;
    *sum += quotient;
}

static void sum_final(sqlite3_context* context) {
    int64_t* sum = sqlite3_aggregate_context(context, 0);
    if (sum)
        sqlite3_result_int64(context, *sum);
}

long plain_figures(sqlite3* db, const char* from, const char* after) {
    sqlite3_create_function(db, "sum_mul", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC, NULL, NULL, sum_step, sum_final);
    long rows = 0;
    static const char* const joined = "FROM Move JOIN Move_Cover ON Move.move_id = Move_Cover.move_id JOIN Cover ON "
                                      "Move_Cover.cover_id = Cover.cover_id WHERE move_date >= ?1 AND move_date < ?2";
    for (int sheet = 0; sheet < 10; ++sheet) {
        char sql[1024];
        if (sheet < 8) {
            static const int payments[] = {1, 2, 0};
            char filter[128];
            if (sheet % 4 == 3)
                snprintf(filter, sizeof filter, "move_export = 1");
            else
                snprintf(filter, sizeof filter, "move_export = 0 AND Move_Cover.cover_pay = %d", payments[sheet % 4]);
            snprintf(sql, sizeof sql,
                     "SELECT cover_mat, Move_Cover.cover_type, Move_Cover.cover_org, sum_mul(mvcover_qty, "
                     "cover_weight) %s AND "
                     "cover_reusable = %d AND %s GROUP BY 1, 2, 3",
                     joined, sheet / 4, filter);
        } else if (sheet == 8) {
            snprintf(sql, sizeof sql,
                     "SELECT cover_mat, cover_type, disc_type, sum_mul(disc_qty, cover_weight) FROM CoverDiscard JOIN "
                     "Cover ON "
                     "CoverDiscard.cover_id = Cover.cover_id WHERE cover_reusable = 1 AND disc_date >= ?1 AND "
                     "disc_date < ?2 GROUP BY 1, 2, 3");
        } else {
            snprintf(sql, sizeof sql,
                     "SELECT cover_stat, cover_reusable, sum_mul(mvcover_qty, cover_weight) %s AND cover_stat <> 0 "
                     "GROUP BY 1, 2",
                     joined);
        }
        sqlite3_stmt* s = plain_prepare(db, sql);
        sqlite3_bind_text(s, 1, from, -1, SQLITE_STATIC);
        sqlite3_bind_text(s, 2, after, -1, SQLITE_STATIC);
        while (sqlite3_step(s) == SQLITE_ROW)
            ++rows;
        sqlite3_finalize(s);
    }
    return rows;
}
