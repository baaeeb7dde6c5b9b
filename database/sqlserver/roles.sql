-- Two roles: StationOperator may do what the statements of the station do, and nothing else;
-- StationReader may read weighments and the names in them. Run this after schema.sql, and again
-- whenever a new table refers to Arrivals. Running it twice changes nothing. It adds no
-- members.
--
-- The station builds its statements from typed texts, so this role protects the rest of the database
-- from a pasted text. The statements name tables without a schema. The schema Station, the default schema of
-- each station's user, holds a view for each table, with the same name and the rows and columns that
-- the station needs. The role cannot write the tables themselves, and reads of them only what the two
-- functions read. Grant nothing here that no statement needs.

IF DATABASE_PRINCIPAL_ID(N'StationOperator') IS NULL
    CREATE ROLE StationOperator;
GO

IF DATABASE_PRINCIPAL_ID(N'StationReader') IS NULL
    CREATE ROLE StationReader;
GO

IF SCHEMA_ID(N'Station') IS NULL
    EXEC (N'CREATE SCHEMA Station AUTHORIZATION dbo');
GO

-- ---- statements to run ----
-- Statements that depend on the tables of the database are collected here and run in this order.

DROP TABLE IF EXISTS #Statements;
CREATE TABLE #Statements (
    Number    int IDENTITY NOT NULL PRIMARY KEY,
    Statement nvarchar(max) NOT NULL
);
GO

-- ---- the views ----
-- A view is created again when its text has changed. Its column names are in lower case, because some
-- servers accept grants on the columns of a view in lower case only. Statements are not affected.

DECLARE @Shown TABLE (
    SchemaName nvarchar(128) NOT NULL,
    TableName  nvarchar(128) NOT NULL,
    ColumnName nvarchar(128) NOT NULL,
    ShownAs    nvarchar(20) NULL -- an expression instead of the column, so that it cannot be written
);
INSERT INTO @Shown (SchemaName, TableName, ColumnName) VALUES
    -- The pick lists, the searches and the slip
    (N'dbo', N'ChartOfAccounts', N'AccountNo'), (N'dbo', N'ChartOfAccounts', N'AccountName'),
    (N'dbo', N'ChartOfAccounts', N'IsEditable'),
    (N'dbo', N'Parties', N'PartyId'), (N'dbo', N'Parties', N'CityId'),
    (N'dbo', N'Parties', N'Address'), (N'dbo', N'Parties', N'IsSeller'),
    (N'dbo', N'Parties', N'IsBuyer'), (N'dbo', N'Parties', N'IsBroker'),
    (N'dbo', N'Cities', N'CityId'), (N'dbo', N'Cities', N'CityName'),
    (N'dbo', N'Commodities', N'CommodityId'), (N'dbo', N'Commodities', N'CommodityName'),
    (N'dbo', N'Commodities', N'IsPurchaseable'), (N'dbo', N'Commodities', N'IsSaleable'),
    (N'dbo', N'Commodities', N'IsWheatCommodity'),
    (N'dbo', N'BagsClasses', N'BagsClassId'), (N'dbo', N'BagsClasses', N'BagsClass'),
    (N'dbo', N'BagsTypes', N'BagsTypeId'), (N'dbo', N'BagsTypes', N'BagsType'),
    (N'dbo', N'PContracts', N'ContractId'), (N'dbo', N'PContracts', N'PartyId'),
    (N'dbo', N'PRCenters', N'CenterId'), (N'dbo', N'PRCenters', N'CenterName'),
    -- A weighment
    (N'dbo', N'Arrivals', N'ArrivalID'), (N'dbo', N'Arrivals', N'ArrivalDate'),
    (N'dbo', N'Arrivals', N'PermitNo'), (N'dbo', N'Arrivals', N'CenterId'),
    (N'dbo', N'Arrivals', N'CommodityId'), (N'dbo', N'Arrivals', N'SellerId'),
    (N'dbo', N'Arrivals', N'ContractId'), (N'dbo', N'Arrivals', N'IsPosted'),
    (N'dbo', N'ArrivalsBody', N'ArrivalId'), (N'dbo', N'ArrivalsBody', N'CommodityId'),
    (N'dbo', N'ArrivalsBody', N'BagsClassId'), (N'dbo', N'ArrivalsBody', N'BagsTypeId'),
    (N'dbo', N'ArrivalsBody', N'NoOfBags'), (N'dbo', N'ArrivalsBody', N'VehicleNo'),
    (N'dbo', N'ArrivalsBody', N'TareWeight'), (N'dbo', N'ArrivalsBody', N'ScaleDeduction'),
    (N'dbo', N'ArrivalsBody', N'BagWeight'), (N'dbo', N'ArrivalsBody', N'BagsDeduction'),
    (N'dbo', N'ArrivalsBody', N'OtherDeduction'), (N'dbo', N'ArrivalsBody', N'NetWeight'),
    (N'dbo', N'ArrivalsBody', N'DriverName'), (N'dbo', N'ArrivalsBody', N'BiltyNo'),
    (N'dbo', N'ArrivalsBody', N'VehicleNoText'),
    -- The test before a removal, the users without their passwords' hashes, settings, the schema version
    (N'dbo', N'PurchaseBody', N'ArrivalId'),
    (N'dbo', N'StationUsers', N'UserName'), (N'dbo', N'StationUsers', N'UserLevel'),
    (N'dbo', N'PortSettings', N'RegistryKey'), (N'dbo', N'PortSettings', N'RegistryValue'),
    (N'dbo', N'Project_Registry', N'registrykey'), (N'dbo', N'Project_Registry', N'value'),
    (N'dbo', N'StationSchema', N'SchemaVersion');
-- The figures of the books are read and never written. A subquery keeps the type of its column.
INSERT INTO @Shown (SchemaName, TableName, ColumnName, ShownAs) VALUES
    (N'dbo', N'Arrivals', N'NoOfBags', N'(SELECT NoOfBags)'),
    (N'dbo', N'Arrivals', N'BagWeight', N'(SELECT BagWeight)'),
    (N'dbo', N'Arrivals', N'TareWeight', N'(SELECT TareWeight)');
-- A row is found for writing by its key.
INSERT INTO @Shown (SchemaName, TableName, ColumnName)
    SELECT N'dbo', T.name, C.name
        FROM sys.tables T
        INNER JOIN sys.indexes I ON I.object_id = T.object_id AND I.is_primary_key = 1
        INNER JOIN sys.index_columns K ON K.object_id = I.object_id AND K.index_id = I.index_id
        INNER JOIN sys.columns C ON C.object_id = K.object_id AND C.column_id = K.column_id
        WHERE T.object_id IN (OBJECT_ID(N'dbo.Arrivals'), OBJECT_ID(N'dbo.ArrivalsBody'));
-- The test before a save reads one row of each table that refers to Arrivals, by its foreign key. Only
-- the columns of that key are shown.
INSERT INTO @Shown (SchemaName, TableName, ColumnName)
    SELECT S.name, T.name, C.name
        FROM sys.foreign_key_columns K
        INNER JOIN sys.tables T ON T.object_id = K.parent_object_id
        INNER JOIN sys.schemas S ON S.schema_id = T.schema_id
        INNER JOIN sys.columns C ON C.object_id = K.parent_object_id
                                AND C.column_id = K.parent_column_id
        WHERE K.referenced_object_id = OBJECT_ID(N'dbo.Arrivals');

-- Where two schemas have a table of the same name, the view shows the one in dbo.
DECLARE @ViewColumns TABLE (
    SchemaName nvarchar(128) NOT NULL,
    TableName  nvarchar(128) NOT NULL,
    Position   int NOT NULL,
    ColumnName nvarchar(128) NOT NULL,
    ShownAs    nvarchar(20) NULL
);
INSERT INTO @ViewColumns (SchemaName, TableName, Position, ColumnName, ShownAs)
    SELECT S.name, T.name, C.column_id, C.name, MAX(V.ShownAs)
        FROM @Shown V
        INNER JOIN sys.schemas S ON S.name = V.SchemaName
        INNER JOIN sys.tables T ON T.schema_id = S.schema_id AND T.name = V.TableName
        INNER JOIN sys.columns C ON C.object_id = T.object_id AND C.name = V.ColumnName
        GROUP BY S.name, T.name, C.column_id, C.name;
DELETE FROM @ViewColumns WHERE SchemaName <> N'dbo'
    AND TableName IN (SELECT TableName FROM @ViewColumns WHERE SchemaName = N'dbo');

DECLARE @schema nvarchar(128), @table nvarchar(128), @column nvarchar(128), @shownAs nvarchar(20);
DECLARE @view nvarchar(300), @columns nvarchar(max), @text nvarchar(max);
DECLARE ShownTables CURSOR LOCAL STATIC FOR SELECT DISTINCT SchemaName, TableName FROM @ViewColumns;
OPEN ShownTables;
FETCH NEXT FROM ShownTables INTO @schema, @table;
WHILE @@FETCH_STATUS = 0
BEGIN
    SET @columns = N'';
    DECLARE ShownColumns CURSOR LOCAL STATIC FOR
        SELECT ColumnName, ShownAs FROM @ViewColumns
            WHERE SchemaName = @schema AND TableName = @table
            ORDER BY Position;
    OPEN ShownColumns;
    FETCH NEXT FROM ShownColumns INTO @column, @shownAs;
    WHILE @@FETCH_STATUS = 0
    BEGIN
        SET @columns = @columns + CASE WHEN @columns = N'' THEN N'' ELSE N', ' END
            + ISNULL(@shownAs, QUOTENAME(@column)) + N' AS ' + QUOTENAME(LOWER(@column));
        FETCH NEXT FROM ShownColumns INTO @column, @shownAs;
    END;
    CLOSE ShownColumns;
    DEALLOCATE ShownColumns;

    SET @view = N'Station.' + QUOTENAME(@table);
    SET @text = N'CREATE VIEW ' + @view + N' AS SELECT ' + @columns
        + N' FROM ' + QUOTENAME(@schema) + N'.' + QUOTENAME(@table)
        + CASE WHEN @schema = N'dbo' AND @table = N'PortSettings'
               THEN N' WHERE RegistryKey IN (N''PortName'', N''PortSettings'', N''DataDirection'', '
                    + N'N''DataLength'', N''IsReversed'') WITH CHECK OPTION'
               WHEN @schema = N'dbo' AND @table = N'Project_Registry'
               THEN N' WHERE registrykey IN (N''CompanyName'', N''CompanyAddress'', '
                    + N'N''CompanyPhone'', N''CompanyEmail'') WITH CHECK OPTION'
               ELSE N'' END;
    IF ISNULL(OBJECT_DEFINITION(OBJECT_ID(@view)), N'') <> @text
    BEGIN
        IF OBJECT_ID(@view) IS NOT NULL
            INSERT INTO #Statements (Statement) VALUES (N'DROP VIEW ' + @view);
        INSERT INTO #Statements (Statement) VALUES (@text);
    END;
    INSERT INTO #Statements (Statement)
        VALUES (N'GRANT SELECT ON ' + @view + N' TO StationOperator');
    FETCH NEXT FROM ShownTables INTO @schema, @table;
END;
CLOSE ShownTables;
DEALLOCATE ShownTables;
GO

-- ---- the keys ----
-- sp_fkeys and sp_pkeys show the keys of a table only to those who have some right on it. REFERENCES
-- gives no access to rows.

INSERT INTO #Statements (Statement)
    SELECT DISTINCT N'GRANT REFERENCES ON ' + QUOTENAME(S.name) + N'.' + QUOTENAME(T.name)
            + N' TO StationOperator'
        FROM sys.tables T
        INNER JOIN sys.schemas S ON S.schema_id = T.schema_id
        LEFT OUTER JOIN sys.foreign_keys K ON K.parent_object_id = T.object_id
        WHERE K.referenced_object_id = OBJECT_ID(N'dbo.Arrivals')
           OR T.object_id IN (OBJECT_ID(N'dbo.Arrivals'), OBJECT_ID(N'dbo.ArrivalsBody'));

-- ---- the members ----
-- Users who are members already get the default schema Station. Owners of the database keep theirs.

INSERT INTO #Statements (Statement)
    SELECT N'ALTER USER ' + QUOTENAME(M.name) + N' WITH DEFAULT_SCHEMA = Station'
        FROM sys.database_role_members L
        INNER JOIN sys.database_principals R ON R.principal_id = L.role_principal_id
        INNER JOIN sys.database_principals M ON M.principal_id = L.member_principal_id
        WHERE R.name = N'StationOperator' AND M.type IN ('S', 'U', 'G') AND M.name <> N'dbo'
          AND ISNULL(M.default_schema_name, N'') <> N'Station'
          AND ISNULL(IS_ROLEMEMBER(N'db_owner', M.name), 0) = 0;
GO

DECLARE @statement nvarchar(max);
DECLARE Collected CURSOR LOCAL STATIC FOR SELECT Statement FROM #Statements ORDER BY Number;
OPEN Collected;
FETCH NEXT FROM Collected INTO @statement;
WHILE @@FETCH_STATUS = 0
BEGIN
    EXEC (@statement);
    FETCH NEXT FROM Collected INTO @statement;
END;
CLOSE Collected;
DEALLOCATE Collected;
DROP TABLE #Statements;
GO

-- ---- the sign-in ----
-- The server checks the password, and no view shows a stored hash. A station writes the user's name to
-- its session and reads the salt and cost of the hash. It hashes the password with them and writes the
-- result to its session. SignedInUser then has a row if the two hashes are equal. The triggers of
-- guards.sql read the user's level from there. SESSION_CONTEXT needs SQL Server 2016.

IF OBJECT_ID(N'Station.SigningUser') IS NULL
    EXEC (N'CREATE VIEW Station.SigningUser AS
SELECT UserName AS username,
       LEFT(PasswordHash, LEN(PasswordHash) - CHARINDEX(N''$'', REVERSE(PasswordHash))) AS salt
    FROM dbo.StationUsers
    WHERE LTRIM(RTRIM(UserName)) = CAST(SESSION_CONTEXT(N''StationUser'') AS nvarchar(60))
      AND PasswordHash LIKE N''$%$%$%''');
GO

IF OBJECT_ID(N'Station.SignedInUser') IS NULL
    EXEC (N'CREATE VIEW Station.SignedInUser AS
SELECT UserName AS username, UserLevel AS userlevel
    FROM dbo.StationUsers
    WHERE LTRIM(RTRIM(UserName)) = CAST(SESSION_CONTEXT(N''StationUser'') AS nvarchar(60))
      AND PasswordHash COLLATE Latin1_General_BIN2
        = CAST(SESSION_CONTEXT(N''StationProof'') AS nvarchar(200)) COLLATE Latin1_General_BIN2');
GO

GRANT SELECT ON Station.SigningUser TO StationOperator;
GRANT SELECT ON Station.SignedInUser TO StationOperator;
GO

-- ---- writing ----
-- The station replaces lines and never changes them. It never changes an id.

GRANT INSERT, DELETE ON Station.Arrivals TO StationOperator;
GRANT UPDATE ON Station.Arrivals (arrivaldate, permitno, centerid, commodityid, sellerid, contractid,
    isposted) TO StationOperator;
GRANT INSERT, DELETE ON Station.ArrivalsBody TO StationOperator;
GRANT UPDATE ON Station.PortSettings (registryvalue) TO StationOperator;
GRANT UPDATE ON Station.Project_Registry (value) TO StationOperator;
GO

-- ---- the two functions ----
-- If a function of the site and its tables have different owners, the function reads with the rights of
-- its caller.

GRANT EXECUTE ON dbo.FunGetPartyName TO StationOperator;
GRANT EXECUTE ON dbo.FunGetCommodity TO StationOperator;
GRANT SELECT ON dbo.ChartOfAccounts (AccountNo, AccountName) TO StationOperator;
GRANT SELECT ON dbo.Parties (PartyId, CityId) TO StationOperator;
GRANT SELECT ON dbo.Cities (CityId, CityName) TO StationOperator;
GRANT SELECT ON dbo.Commodities (CommodityId, CommodityName) TO StationOperator;
GO

-- ---- reading, for reports ----

GRANT SELECT ON dbo.Arrivals TO StationReader;
GRANT SELECT ON dbo.ArrivalsBody TO StationReader;
GRANT SELECT ON dbo.ChartOfAccounts (AccountNo, AccountName, IsEditable) TO StationReader;
GRANT SELECT ON dbo.Parties (PartyId, CityId, Address, IsSeller, IsBuyer, IsBroker)
    TO StationReader;
GRANT SELECT ON dbo.Cities (CityId, CityName) TO StationReader;
GRANT SELECT ON dbo.Commodities (CommodityId, CommodityName, IsPurchaseable, IsSaleable,
    IsWheatCommodity) TO StationReader;
GRANT SELECT ON dbo.BagsClasses (BagsClassId, BagsClass) TO StationReader;
GRANT SELECT ON dbo.BagsTypes (BagsTypeId, BagsType) TO StationReader;
GRANT SELECT ON dbo.PContracts (ContractId, PartyId) TO StationReader;
GRANT SELECT ON dbo.PRCenters (CenterId, CenterName) TO StationReader;
GRANT EXECUTE ON dbo.FunGetPartyName TO StationReader;
GRANT EXECUTE ON dbo.FunGetCommodity TO StationReader;
GO
