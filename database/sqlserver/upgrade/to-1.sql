-- Adds the station's tables and rows to a database that has the mill's tables and functions but was
-- set up before the station had users and a schema version. Unlike schema.sql it creates none of the
-- mill's tables. It may be run twice.
--
-- A station that signs in as the database's owner runs it at its start, in one transaction. By hand:
--     sqlcmd -b -d <database> -i to-1.sql, and then the same with ../roles.sql

IF OBJECT_ID(N'dbo.StationUsers') IS NULL
    CREATE TABLE dbo.StationUsers (
        UserName     nvarchar(60) NOT NULL CONSTRAINT StationKeyOfStationUsers PRIMARY KEY,
        PasswordHash nvarchar(200) NOT NULL,
        UserLevel    int NOT NULL
    );
GO

IF OBJECT_ID(N'dbo.Project_Registry') IS NULL
    CREATE TABLE dbo.Project_Registry (
        registrykey nvarchar(40) NOT NULL CONSTRAINT StationKeyOfProject_Registry PRIMARY KEY,
        value       nvarchar(400) NULL
    );
GO

BEGIN TRY
    INSERT INTO dbo.Project_Registry (registrykey, value)
        SELECT N'CompanyName', N''
        WHERE NOT EXISTS (SELECT 1 FROM dbo.Project_Registry WHERE registrykey = N'CompanyName');
END TRY
BEGIN CATCH
    PRINT N'Not added to Project_Registry: CompanyName. ' + ERROR_MESSAGE();
END CATCH;
GO

IF OBJECT_ID(N'dbo.StationSchema') IS NULL
    CREATE TABLE dbo.StationSchema (
        SchemaVersion float NOT NULL
    );
GO

IF NOT EXISTS (SELECT 1 FROM dbo.StationSchema)
    INSERT INTO dbo.StationSchema (SchemaVersion) VALUES (0);
UPDATE dbo.StationSchema SET SchemaVersion = 1 WHERE SchemaVersion < 1;
GO
