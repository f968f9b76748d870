/* The import of one year's tables as one would write it by hand: files read whole, fields at places that are known,
   lines sorted, documents found by halving. */
#include "bench/plain/Plain.h"

#include <iconv.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>

enum { CARD = 81, DOCUMENT = 60, INVOICE = 62, LINE = 114 };

struct table {
    char* bytes;
    const char* records;
    long count;
};

static struct table read_table(const char* folder, const char* name) {
    char path[1024];
    snprintf(path, sizeof path, "%s/%s", folder, name);
    FILE* file = fopen(path, "rb");
    if (file == NULL)
        abort();
    fseek(file, 0, SEEK_END);
    const long size = ftell(file);
    rewind(file);
    struct table t = {malloc((size_t)size), NULL, 0};
    if (fread(t.bytes, 1, (size_t)size, file) != (size_t)size)
        abort();
    fclose(file);
    uint32_t count;
    uint16_t header;
    memcpy(&count, t.bytes + 4, 4);
    memcpy(&header, t.bytes + 8, 2);
    t.records = t.bytes + header;
    t.count = count;
    return t;
}

static long number(const char* at, int width) {
    char text[24];
    memcpy(text, at, (size_t)width);
    text[width] = 0;
    return atol(text);
}

/* Ten-thousandths of a number with four decimals. */
static int64_t quantity(const char* at) {
    return (int64_t)number(at, 11) * 10000 + number(at + 12, 4);
}

static iconv_t to_utf8;

static void bind_text(sqlite3_stmt* s, int place, const char* at, int width) {
    while (width > 0 && at[width - 1] == ' ')
        --width;
    char out[256];
    char* in = (char*)at;
    char* end = out;
    size_t left = (size_t)width, room = sizeof out;
    iconv(to_utf8, &in, &left, &end, &room);
    sqlite3_bind_text(s, place, out, (int)(end - out), SQLITE_TRANSIENT);
}

static void run(sqlite3* db, sqlite3_stmt* s) {
    if (sqlite3_step(s) != SQLITE_DONE) {
        fprintf(stderr, "%s\n", sqlite3_errmsg(db));
        abort();
    }
    sqlite3_reset(s);
}

/* The first column of the first row; 0 when there is none. */
static int64_t ask(sqlite3_stmt* s) {
    const int64_t value = sqlite3_step(s) == SQLITE_ROW ? sqlite3_column_int64(s, 0) : 0;
    sqlite3_reset(s);
    return value;
}

struct group {
    sqlite3* db;
    sqlite3_stmt *begin, *commit;
    int64_t start, changes;
};

static int64_t now_ms(void) {
    struct timespec t;
    clock_gettime(CLOCK_MONOTONIC, &t);
    return (int64_t)t.tv_sec * 1000 + t.tv_nsec / 1000000;
}

static void begin(struct group* g) {
    run(g->db, g->begin);
    g->start = now_ms();
    g->changes = sqlite3_total_changes64(g->db);
}

static void record_done(struct group* g) {
    if (sqlite3_total_changes64(g->db) - g->changes < 5000 && now_ms() - g->start < 1000)
        return;
    run(g->db, g->commit);
    begin(g);
}

static int by_line(const void* a, const void* b) {
    /* Kind, document and item stand one after the other, numbers on the right: their bytes compare as they do. */
    return memcmp(*(const char* const*)a + 1, *(const char* const*)b + 1, 17);
}

static const char* find(const struct table* t, int size, const char* key) {
    long low = 0, high = t->count;
    while (low < high) {
        const long middle = (low + high) / 2;
        const int order = memcmp(t->records + middle * size + 1, key, 10);
        if (order == 0)
            return t->records + middle * size;
        if (order < 0)
            low = middle + 1;
        else
            high = middle;
    }
    return NULL;
}

static void bind_date(sqlite3_stmt* s, int place, char* date, const char* at) {
    snprintf(date, 20, "%.4s-%.2s-%.2s 00:00:00", at, at + 4, at + 6);
    sqlite3_bind_text(s, place, date, 19, SQLITE_TRANSIENT);
}

long plain_import(sqlite3* db, const char* folder) {
    to_utf8 = iconv_open("UTF-8", "CP1250");
    struct table cards = read_table(folder, "SKKMKART.DAT"), documents = read_table(folder, "SKSEZDOK.DAT"),
                 invoices = read_table(folder, "VFAKTURY.DAT"), lines = read_table(folder, "SKSEZPOL.DAT");
    sqlite3_stmt* all[] = {
        plain_prepare(db, "BEGIN IMMEDIATE"),
        plain_prepare(db, "COMMIT"),
        plain_prepare(db, "SELECT prod_id FROM Product WHERE prod_source = 1 AND prod_scrid = ?"),
        plain_prepare(db, "INSERT INTO Product (prod_name, prod_katalog, prod_unit, deleted, prod_source, prod_scrid) "
                          "VALUES (?, ?, ?, 0, 1, ?)"),
        plain_prepare(db, "UPDATE Product SET prod_name = ?, prod_katalog = ?, prod_unit = ?, deleted = 0 WHERE "
                          "prod_id = ?"),
        plain_prepare(db, "SELECT move_id FROM Move WHERE move_source = 1 AND move_num = ? COLLATE NOCASE"),
        plain_prepare(db,
                      "INSERT INTO Move (move_num, move_date, move_type, move_export, move_source) VALUES (?, ?, ?, "
                      "?, 1)"),
        plain_prepare(db, "UPDATE Move SET move_date = ?2, move_type = ?3, move_export = ?4 WHERE move_id = ?1"),
        plain_prepare(db, "DELETE FROM Move_Cover WHERE move_id = ?"),
        plain_prepare(db, "DELETE FROM Move_Prod WHERE move_id = ?"),
        plain_prepare(db, "INSERT INTO Move_Prod (move_id, prod_id, mvprod_qty) VALUES (?, ?, ?)"),
        plain_prepare(db, "SELECT dt_id, dt_from FROM Prod_CoverDT WHERE prod_id = ? ORDER BY dt_from"),
        plain_prepare(db, "SELECT cp_usealways, cp_usefrom, cp_useto, cp_qtyprod, cp_qtycover, cover_id, cover_type, "
                          "cover_org, cover_pay FROM Prod_Cover WHERE dt_id = ?"),
        plain_prepare(db, "INSERT INTO Move_Cover (mvprod_id, move_id, cover_id, mvcover_qty, cover_type, cover_org, "
                          "cover_pay) VALUES (?, ?, ?, ?, ?, ?, ?)"),
    };
    sqlite3_stmt *find_product = all[2], *new_product = all[3], *set_product = all[4], *find_move = all[5],
                 *new_move = all[6], *set_move = all[7], *old_covers = all[8], *old_lines = all[9], *new_line = all[10],
                 *dates = all[11], *packaging = all[12], *new_cover = all[13];
    struct group g = {db, all[0], all[1], 0, 0};
    begin(&g);
    for (long i = 0; i < cards.count; ++i) {
        const char* r = cards.records + i * CARD;
        const long key = number(r + 1, 10);
        record_done(&g);
        sqlite3_bind_int64(find_product, 1, key);
        const int64_t id = ask(find_product);
        sqlite3_stmt* write = id ? set_product : new_product;
        bind_text(write, 1, r + 11, 40);
        bind_text(write, 2, r + 51, 20);
        bind_text(write, 3, r + 71, 10);
        sqlite3_bind_int64(write, 4, id ? id : key);
        run(db, write);
    }
    run(db, g.commit);
    const char** order = malloc((size_t)lines.count * sizeof *order);
    for (long i = 0; i < lines.count; ++i)
        order[i] = lines.records + i * LINE;
    qsort(order, (size_t)lines.count, sizeof *order, by_line);
    begin(&g);
    int64_t move = 0;
    char date[20] = "";
    long written = 0;
    for (long i = 0; i < lines.count; ++i) {
        const char* l = order[i];
        if (i == 0 || memcmp(order[i - 1] + 1, l + 1, 11) != 0) {
            const int is_invoice = l[1] == 'V';
            const char* d = is_invoice ? find(&invoices, INVOICE, l + 2) : find(&documents, DOCUMENT, l + 2);
            move = 0;
            if (d == NULL || (is_invoice && (d[30] != '0' || d[31] != 'F')))
                continue;
            record_done(&g);
            bind_text(find_move, 1, d + 11, 10);
            move = ask(find_move);
            sqlite3_stmt* write = move ? set_move : new_move;
            if (move) {
                sqlite3_bind_int64(old_covers, 1, move);
                run(db, old_covers);
                sqlite3_bind_int64(old_lines, 1, move);
                run(db, old_lines);
                sqlite3_bind_int64(write, 1, move);
            } else {
                bind_text(write, 1, d + 11, 10);
            }
            bind_date(write, 2, date, d + 21);
            sqlite3_bind_int(write, 3, is_invoice ? 1 : d[29] == 'V' ? 3 : d[29] == 'P' ? 2 : 0);
            const char* country = is_invoice ? d + 32 : d + 30;
            sqlite3_bind_int(write, 4, country[0] != ' ');
            run(db, write);
            if (!move)
                move = sqlite3_last_insert_rowid(db);
        }
        if (!move)
            continue;
        const long key = number(l + 18, 10);
        sqlite3_bind_int64(find_product, 1, key);
        int64_t product = ask(find_product);
        if (!product) {
            bind_text(new_product, 1, l + 28, 40);
            bind_text(new_product, 2, l + 68, 20);
            bind_text(new_product, 3, l + 88, 10);
            sqlite3_bind_int64(new_product, 4, key);
            run(db, new_product);
            product = sqlite3_last_insert_rowid(db);
        }
        const int64_t amount = quantity(l + 98);
        sqlite3_bind_int64(new_line, 1, move);
        sqlite3_bind_int64(new_line, 2, product);
        sqlite3_bind_int64(new_line, 3, amount);
        run(db, new_line);
        const int64_t line = sqlite3_last_insert_rowid(db);
        int64_t definition = 0;
        sqlite3_bind_int64(dates, 1, product);
        while (sqlite3_step(dates) == SQLITE_ROW && strcmp(date, (const char*)sqlite3_column_text(dates, 1)) >= 0)
            definition = sqlite3_column_int64(dates, 0);
        sqlite3_reset(dates);
        sqlite3_bind_int64(packaging, 1, definition);
        while (definition && sqlite3_step(packaging) == SQLITE_ROW) {
            if (!sqlite3_column_int(packaging, 0) &&
                (sqlite3_column_int64(packaging, 1) > amount || amount > sqlite3_column_int64(packaging, 2)))
                continue;
            int64_t per = sqlite3_column_int64(packaging, 3), factor = 1;
            if (per >= 0)
                factor = per == 0 ? 0 : amount / per;
            sqlite3_bind_int64(new_cover, 1, line);
            sqlite3_bind_int64(new_cover, 2, move);
            sqlite3_bind_int64(new_cover, 3, sqlite3_column_int64(packaging, 5));
            sqlite3_bind_int64(new_cover, 4, factor * sqlite3_column_int64(packaging, 4));
            for (int c = 6; c < 9; ++c)
                sqlite3_bind_int64(new_cover, c - 1, sqlite3_column_int64(packaging, c));
            run(db, new_cover);
        }
        sqlite3_reset(packaging);
        ++written;
    }
    run(db, g.commit);
    for (size_t i = 0; i < sizeof all / sizeof *all; ++i)
        sqlite3_finalize(all[i]);
    free(order);
    free(cards.bytes);
    free(documents.bytes);
    free(invoices.bytes);
    free(lines.bytes);
    iconv_close(to_utf8);
    return written;
}
