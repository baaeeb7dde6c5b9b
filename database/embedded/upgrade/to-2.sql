-- The number of a bag line is never used again. A station deletes the lines of a load by the numbers
-- that it has read; if another station deleted them in the meantime, a new load could get them.
--
-- The table's definition is changed in place, which SQLite allows for a change that does not affect
-- the stored rows: all rows, indexes, views and triggers stay. A table with another key is refused. A
-- table without a key is not changed, because its rows are found by all their columns. The script may
-- be run twice. The caller writes the version.

-- The first table of this kind creates the table in which SQLite stores the last number.
CREATE TABLE StationStep (
    StepId INTEGER PRIMARY KEY AUTOINCREMENT,
    Fits   INTEGER CONSTRAINT ArrivalsBodyHasLineIdAsItsKey CHECK (Fits = 1)
);

PRAGMA writable_schema = ON;

UPDATE sqlite_schema
    SET sql = replace(sql, 'INTEGER NOT NULL PRIMARY KEY,',
                      'INTEGER NOT NULL PRIMARY KEY AUTOINCREMENT,')
    WHERE type = 'table' AND name = 'ArrivalsBody' COLLATE NOCASE
        AND sql GLOB '*(*LineId *INTEGER NOT NULL PRIMARY KEY,*ArrivalId *';

PRAGMA writable_schema = RESET;

INSERT INTO StationStep (Fits)
    SELECT sql LIKE '%AUTOINCREMENT%'
            OR NOT EXISTS (SELECT 1 FROM pragma_table_info('ArrivalsBody') WHERE pk > 0)
        FROM sqlite_schema WHERE type = 'table' AND name = 'ArrivalsBody' COLLATE NOCASE;

DROP TABLE StationStep;

INSERT INTO sqlite_sequence (name, seq)
    SELECT T.name, (SELECT max(rowid) FROM ArrivalsBody) FROM sqlite_schema T
        WHERE T.type = 'table' AND T.name = 'ArrivalsBody' COLLATE NOCASE
            AND T.sql LIKE '%AUTOINCREMENT%' AND EXISTS (SELECT 1 FROM ArrivalsBody)
            AND NOT EXISTS (SELECT 1 FROM sqlite_sequence S WHERE S.name = T.name);
