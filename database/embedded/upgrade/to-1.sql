-- Adds the station's tables to a database that has the mill's tables but was set up before the
-- station had users and a schema version. The caller writes the version.

CREATE TABLE IF NOT EXISTS StationSchema (
    SchemaVersion REAL NOT NULL
);

CREATE TABLE IF NOT EXISTS StationUsers (
    UserName     TEXT NOT NULL COLLATE NOCASE PRIMARY KEY,
    PasswordHash TEXT NOT NULL,
    UserLevel    INTEGER NOT NULL
);

CREATE TABLE IF NOT EXISTS Project_Registry (
    registrykey TEXT NOT NULL COLLATE NOCASE PRIMARY KEY,
    value       TEXT COLLATE NOCASE
);

INSERT INTO Project_Registry (registrykey, value)
    SELECT 'CompanyName', '' WHERE NOT EXISTS
        (SELECT 1 FROM Project_Registry WHERE registrykey = 'CompanyName');
