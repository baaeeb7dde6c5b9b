-- The embedded database makes line numbers unique from this step on; SQL Server has always done so. The
-- role StationOperator loses its rights on the tables: roles.sql, which follows, grants it rights on
-- views of them instead. It may be run twice.
--
-- A station that signs in as the database's owner runs it at its start, in one transaction. By hand:
--     sqlcmd -b -d <database> -i to-2.sql, and then the same with ../roles.sql and ../guards.sql

DECLARE @revoke nvarchar(600);
DECLARE Tables CURSOR LOCAL STATIC FOR
    SELECT N'REVOKE SELECT, INSERT, UPDATE, DELETE ON ' + QUOTENAME(S.name) + N'.'
            + QUOTENAME(T.name) + N' FROM StationOperator'
        FROM sys.tables T
        INNER JOIN sys.schemas S ON S.schema_id = T.schema_id
        WHERE DATABASE_PRINCIPAL_ID(N'StationOperator') IS NOT NULL;
OPEN Tables;
FETCH NEXT FROM Tables INTO @revoke;
WHILE @@FETCH_STATUS = 0
BEGIN
    EXEC (@revoke);
    FETCH NEXT FROM Tables INTO @revoke;
END;
CLOSE Tables;
DEALLOCATE Tables;
GO

UPDATE dbo.StationSchema SET SchemaVersion = 2 WHERE SchemaVersion < 2;
GO
