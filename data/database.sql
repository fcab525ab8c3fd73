-- The schema of QUOREL73.MDB. One statement ends at each semicolon.

-- Upper 5 % points of F, filled by make_database: GDL_1 1 to 3, GDL_2 1 to 1000.
CREATE TABLE TabF (
    GDL_1 INTEGER NOT NULL,
    GDL_2 INTEGER NOT NULL,
    VAL_F REAL NOT NULL,
    PRIMARY KEY (GDL_1, GDL_2)
) WITHOUT ROWID;
