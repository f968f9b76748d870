/* The same work as one would write it by hand in C over SQLite: statements prepared once, the same indexes, the same
   commits, the same settings of the connection. */
#ifndef KUVEL_BENCH_PLAIN_H
#define KUVEL_BENCH_PLAIN_H

#ifdef __cplusplus
extern "C" {
#endif

#include <sqlite3.h>
#include <stddef.h>
#include <stdint.h>

sqlite3* plain_open(const char* path);
void plain_close(sqlite3* db);
sqlite3_stmt* plain_prepare(sqlite3* db, const char* sql);
void plain_exec(sqlite3* db, const char* sql);

/* Deletes and computes anew the packaging of every issue line; answers the number of lines. */
long plain_recompute(sqlite3* db);
/* Sets the pieces (in ten-thousandths) of one packaging row and computes the product's issue lines anew; answers the
   number of lines. */
long plain_change_packaging(sqlite3* db, long row, long product, long pieces);
/* Deletes the packaging of line numbers that are not there, one after the other. */
void plain_repeat(sqlite3* db, long count);
/* The keys of all issues in the Czech order of their numbers, then the first 50 rows. Answers the number of keys. */
long plain_keyset(sqlite3* db);
/* The same for the covers that are not deleted, in the order of their names. */
long plain_covers(sqlite3* db);
/* Marks the covers 1 to `count` deleted by way of the scratch table, and reads the keys of the rest. */
void plain_delete_covers(sqlite3* db, long count);
/* Of the covers that are not deleted, the keys of those whose name is `text`, or has it as a part, without regard to
   case; answers how many there are. */
long plain_find(sqlite3* db, const char* text, int part);
/* Puts `with` in the place of `part` in the names of those of these covers that have it, in this order. */
void plain_replace(sqlite3* db, const int64_t* covers, size_t count, const char* part, const char* with);
/* The sums of all ten sheets of one quarter; answers the number of result rows. */
long plain_figures(sqlite3* db, const char* from, const char* after);
/* Imports the four tables of this folder, overwriting what an earlier import wrote; answers the number of lines. */
long plain_import(sqlite3* db, const char* folder);

#ifdef __cplusplus
}
#endif

#endif
