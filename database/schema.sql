-- The database that is delivered with the program: every table, empty.
-- The declared types tell the program which values a column holds:
--   COUNTER   the row's key, never used again after a deletion      LONG      a whole number
--   CURRENCY  the count of ten-thousandths                          BOOLEAN   0 or 1
--   DATE      "YYYY-MM-DD HH:MM:SS"                                 TEXT      text
-- (The second word, where there is one, gives SQLite the storage class.)

PRAGMA page_size = 4096;
PRAGMA encoding = 'UTF-8';
PRAGMA application_id = 1265988172; -- "KuvL"
PRAGMA user_version = 1;

CREATE TABLE Cover (
    cover_id       INTEGER PRIMARY KEY AUTOINCREMENT,
    cover_name     TEXT,
    cover_mat      LONG INTEGER,
    cover_weight   CURRENCY INTEGER,
    cover_type     LONG INTEGER,
    cover_org      LONG INTEGER,
    cover_pay      LONG INTEGER,
    cover_reusable BOOLEAN INTEGER DEFAULT 0,
    cover_stat     LONG INTEGER,
    cover_note     TEXT,
    deleted        BOOLEAN INTEGER DEFAULT 0
);

CREATE TABLE CompCover (
    ccover_id   INTEGER PRIMARY KEY AUTOINCREMENT,
    ccover_name TEXT,
    ccover_note TEXT
);

CREATE TABLE CompCover_Item (
    ccover_id    LONG INTEGER,
    cover_id     LONG INTEGER,
    cp_qtycover  CURRENCY INTEGER,
    cp_qtyprod   CURRENCY INTEGER,
    cp_usealways BOOLEAN INTEGER,
    cp_usefrom   CURRENCY INTEGER,
    cp_useto     CURRENCY INTEGER,
    cover_type   LONG INTEGER,
    cover_org    LONG INTEGER,
    cover_pay    LONG INTEGER
);
CREATE INDEX CompCover_Item_ccover_id ON CompCover_Item (ccover_id);
CREATE INDEX CompCover_Item_cover_id ON CompCover_Item (cover_id);

CREATE TABLE TmpCover_Item (
    ti_id        INTEGER PRIMARY KEY AUTOINCREMENT,
    ccover_id    LONG INTEGER,
    cover_id     LONG INTEGER,
    cp_qtycover  CURRENCY INTEGER,
    cp_qtyprod   CURRENCY INTEGER,
    cp_usealways BOOLEAN INTEGER,
    cp_usefrom   CURRENCY INTEGER,
    cp_useto     CURRENCY INTEGER,
    cover_type   LONG INTEGER,
    cover_org    LONG INTEGER,
    cover_pay    LONG INTEGER
);

CREATE TABLE Product (
    prod_id      INTEGER PRIMARY KEY AUTOINCREMENT,
    prod_name    TEXT,
    prod_katalog TEXT,
    prod_unit    TEXT,
    prod_source  LONG INTEGER,
    prod_scrid   LONG INTEGER,
    deleted      BOOLEAN INTEGER DEFAULT 0
);
CREATE INDEX Product_source ON Product (prod_source, prod_scrid);

CREATE TABLE Prod_CoverDT (
    dt_id   INTEGER PRIMARY KEY AUTOINCREMENT,
    prod_id LONG INTEGER,
    dt_from DATE TEXT
);
CREATE INDEX Prod_CoverDT_prod_id ON Prod_CoverDT (prod_id, dt_from);

CREATE TABLE Prod_Cover (
    cp_id        INTEGER PRIMARY KEY AUTOINCREMENT,
    dt_id        LONG INTEGER,
    cover_id     LONG INTEGER,
    cp_qtycover  CURRENCY INTEGER,
    cp_qtyprod   CURRENCY INTEGER,
    cp_usealways BOOLEAN INTEGER,
    cp_usefrom   CURRENCY INTEGER,
    cp_useto     CURRENCY INTEGER,
    cover_type   LONG INTEGER,
    cover_org    LONG INTEGER,
    cover_pay    LONG INTEGER
);
CREATE INDEX Prod_Cover_dt_id ON Prod_Cover (dt_id);
CREATE INDEX Prod_Cover_cover_id ON Prod_Cover (cover_id);

CREATE TABLE Move (
    move_id     INTEGER PRIMARY KEY AUTOINCREMENT,
    move_num    TEXT,
    move_date   DATE TEXT,
    move_type   LONG INTEGER,
    move_export BOOLEAN INTEGER DEFAULT 0,
    move_source LONG INTEGER
);
CREATE INDEX Move_date ON Move (move_date);
CREATE INDEX Move_source ON Move (move_source, move_num COLLATE NOCASE);

CREATE TABLE Move_Prod (
    mvprod_id  INTEGER PRIMARY KEY AUTOINCREMENT,
    move_id    LONG INTEGER,
    prod_id    LONG INTEGER,
    mvprod_qty CURRENCY INTEGER
);
CREATE INDEX Move_Prod_move_id ON Move_Prod (move_id);
CREATE INDEX Move_Prod_prod_id ON Move_Prod (prod_id);

CREATE TABLE Move_Cover (
    mvcover_id  INTEGER PRIMARY KEY AUTOINCREMENT,
    mvprod_id   LONG INTEGER,
    move_id     LONG INTEGER,
    cover_id    LONG INTEGER,
    mvcover_qty CURRENCY INTEGER,
    cover_type  LONG INTEGER,
    cover_org   LONG INTEGER,
    cover_pay   LONG INTEGER
);
CREATE INDEX Move_Cover_mvprod_id ON Move_Cover (mvprod_id);
CREATE INDEX Move_Cover_move_id ON Move_Cover (move_id);
CREATE INDEX Move_Cover_cover_id ON Move_Cover (cover_id);

CREATE TABLE CoverDiscard (
    disc_id   INTEGER PRIMARY KEY AUTOINCREMENT,
    cover_id  LONG INTEGER,
    disc_date DATE TEXT,
    disc_qty  CURRENCY INTEGER,
    disc_type LONG INTEGER
);
CREATE INDEX CoverDiscard_cover_id ON CoverDiscard (cover_id);
CREATE INDEX CoverDiscard_date ON CoverDiscard (disc_date);

CREATE TABLE TmpID (
    id LONG INTEGER
);
