#pragma once

#include "core/base/ComError.h"
#include "tests/support/ProgramFolder.h"

#include <functional>

/// A small filled database: few rows, each of which decides a case. Currencies are counts of ten-thousandths.
inline constexpr const char* SampleRows = R"sql(
BEGIN;
INSERT INTO Cover VALUES
    (1, 'cena',  7,    5000,   2,    1,    1,    0, 0,    'první',   0),
    (2, 'Cihla', 26,   12345,  0,    0,    0,    1, 1,    NULL,      0),
    (3, 'čaj',   7,    20000,  1,    2,    2,    0, 0,    '',        0),
    (4, 'hůl',   26,   15,     2,    1,    1,    1, 2,    '5" 50%',  0),
    (5, 'chata', 29,   250000, 3,    0,    1,    0, 3,    'd''Or',   0),
    (6, 'ibis',  NULL, NULL,   NULL, NULL, NULL, 0, NULL, NULL,      0),
    (7, 'Čaj',   7,    10000,  1,    1,    1,    1, 0,    'smazaný', 1);
INSERT INTO CompCover VALUES (1, 'Řada', 'x'), (2, 'rada', 'poznámka 10%'), (3, 'Sada', NULL), (4, 'set', 'the note');
INSERT INTO CompCover_Item VALUES
    (1, 1, 10000, 100000, 1, 0,     10000000, 2, 1, 1),
    (1, 3, 5000,  10000,  0, 10000, 50000,    1, 2, 2),
    (2, 3, 20000, 10000,  1, NULL,  NULL,     0, 0, 0);
INSERT INTO TmpCover_Item VALUES
    (1, 1, 5, 10000, 10000, 1, 0, 0, 3, 0, 1),
    (2, 1, 3, 25000, 10000, 1, 0, 0, 1, 2, 2);
INSERT INTO Product VALUES
    (1, 'Židle', 'K-10', 'ks', 1,    17,   0),
    (2, 'zámek', 'K-9',  'KS', 2,    17,   0),
    (3, 'Stůl',  NULL,   'kg', NULL, NULL, 0),
    (4, 'deska', 'K-1',  'm',  1,    18,   1),
    (5, 'Cháp',  'k-10', 'ks', 1,    3,    0);
INSERT INTO Prod_CoverDT VALUES
    (1, 1, '2012-01-01 00:00:00'),
    (2, 1, '2010-06-15 13:45:00'),
    (3, 2, '2012-01-01'),
    (4, 5, '2012-07-01 23:59:59'),
    (5, 4, '2011-01-01 00:00:00');
INSERT INTO Prod_Cover VALUES
    (1, 1, 1, 600000, 50000, 1, 20000, 10000000, 2, 1, 1),
    (2, 1, 5, 20000,  10000, 0, 10000, 20000,    1, 2, 0),
    (3, 1, 2, 15000,  20000, 0, 5000,  30000,    0, 0, 2),
    (4, 3, 4, 10000,  10000, 1, 0,     0,        2, 1, 1),
    (5, 5, 1, 10000,  10000, 1, 0,     0,        2, 1, 1);
INSERT INTO Move VALUES
    (1, 'DL-1', '2012-04-01 00:00:00', 0,    0, NULL),
    (2, 'dl-2', '2012-06-30 23:59:59', 1,    1, 1),
    (3, 'DL-1', '2012-07-01 00:00:00', 3,    0, 2),
    (4, 'č. 5', '2012-03-31 23:59:59', 2,    0, 2),
    (5, 'x''y', '2012-06-30',          0,    0, 2),
    (6, NULL,   NULL,                  NULL, 0, NULL),
    (7, '100%', '30.6.2012',           1,    0, 1);
INSERT INTO Move_Prod VALUES
    (1, 1, 1, 100000), (2, 1, 2, 25000), (3, 2, 1, 10000), (4, 3, 5, -30000), (5, 1, 4, 5000), (6, 1, 5, 25000),
    (7, 5, 2, 10000);
INSERT INTO Move_Cover VALUES
    (1,  1, 1, 1, 100000, 2, 1, 1),
    (2,  1, 1, 2, 30000,  0, 0, 0),
    (3,  2, 1, 5, 15000,  3, 2, 1),
    (4,  3, 2, 1, 20000,  1, 1, 2),
    (5,  3, 2, 4, 10000,  2, 0, 1),
    (6,  4, 3, 3, -30000, 1, 2, 2),
    (7,  2, 1, 1, 5000,   2, 1, 1),
    (8,  1, 1, 7, 10000,  1, 1, 1),
    (9,  6, 1, 6, 10000,  0, 0, 0),
    (10, 7, 5, 4, 10001,  2, 1, 0),
    (11, 3, 7, 1, 70000,  2, 1, 1);
INSERT INTO CoverDiscard VALUES
    (1, 2, '2012-05-05 08:00:00', 20000, 0),
    (2, 2, '2012-04-01 00:00:00', 10000, 2),
    (3, 2, '2012-06-30 23:59:59', 5000,  1),
    (4, 4, '2012-05-01 00:00:00', 10000, 0),
    (5, 1, '2012-05-01 00:00:00', 10000, 0),
    (6, 2, '2012-07-01 00:00:00', 10000, 0),
    (7, 2, '2012-05-05',          10000, 0);
INSERT INTO TmpID VALUES (1), (3);
COMMIT;
)sql";

struct SampleFolder : StoreFolder {
    SampleFolder() { Sql(SampleRows); }
};

/// One value with its type: a currency has four decimals, a date its time, a text its quotes.
std::string Shown(const Variant& value);
/// The same of what it reads, or the code of the error that it raises: "80020005".
std::string ShownOrCode(const std::function<Variant()>& read);
/// The named columns (parted by blanks) of all rows: columns parted by "|", rows by a blank.
std::string Rows(CDataStore& store, const std::string& sql, const char* columns);
