-- Two roles: StationOperator may do what the statements of the station do, and nothing else;
-- StationReader may read weighments and the names beside them. Run this after schema.sql, and again
-- whenever a new table refers to Arrivals. Running it twice changes nothing. Nobody is made a
-- member here.
--
-- A right that no statement needs does not belong here: statements are joined from texts, and what
-- the role may not do is what stands between a pasted text and the rest of the database.

IF DATABASE_PRINCIPAL_ID(N'StationOperator') IS NULL
    CREATE ROLE StationOperator;
GO

IF DATABASE_PRINCIPAL_ID(N'StationReader') IS NULL
    CREATE ROLE StationReader;
GO

-- A weighment. The books' own figures in the header stay out of reach of an update, as do the ids,
-- and a line is replaced and never changed.
GRANT SELECT, INSERT, DELETE ON dbo.Arrivals TO StationOperator;
GRANT UPDATE ON dbo.Arrivals (ArrivalDate, PermitNo, CenterId, CommodityId, SellerId, ContractId,
    IsPosted) TO StationOperator;
GRANT SELECT, INSERT, DELETE ON dbo.ArrivalsBody TO StationOperator;
GO

-- The pick lists, the searches and the slip. What the two functions read is here too: where a
-- site's own function and its tables have different owners, it reads with the rights of its caller.
GRANT SELECT ON dbo.ChartOfAccounts (AccountNo, AccountName, IsEditable) TO StationOperator;
GRANT SELECT ON dbo.Parties (PartyId, CityId, Address, IsSeller, IsBuyer, IsBroker)
    TO StationOperator;
GRANT SELECT ON dbo.Cities (CityId, CityName) TO StationOperator;
GRANT SELECT ON dbo.Commodities (CommodityId, CommodityName, IsPurchaseable, IsSaleable,
    IsWheatCommodity) TO StationOperator;
GRANT SELECT ON dbo.BagsClasses (BagsClassId, BagsClass) TO StationOperator;
GRANT SELECT ON dbo.BagsTypes (BagsTypeId, BagsType) TO StationOperator;
GRANT SELECT ON dbo.PContracts (ContractId, PartyId) TO StationOperator;
GRANT SELECT ON dbo.PRCenters (CenterId, CenterName) TO StationOperator;
GRANT EXECUTE ON dbo.FunGetPartyName TO StationOperator;
GRANT EXECUTE ON dbo.FunGetCommodity TO StationOperator;
GO

-- The test before a removal.
GRANT SELECT ON dbo.PurchaseBody (ArrivalId) TO StationOperator;
GO

-- The test before a save: sp_fkeys, which everybody may run, tells of a table only to those who may
-- read it, and the probe reads whole rows. A table without this right would be passed over.
DECLARE @grant nvarchar(600);
DECLARE Dependents CURSOR LOCAL FAST_FORWARD FOR
    SELECT DISTINCT N'GRANT SELECT ON ' + QUOTENAME(S.name) + N'.' + QUOTENAME(T.name)
            + N' TO StationOperator'
        FROM sys.foreign_keys K
        INNER JOIN sys.tables T ON T.object_id = K.parent_object_id
        INNER JOIN sys.schemas S ON S.schema_id = T.schema_id
        WHERE K.referenced_object_id = OBJECT_ID(N'dbo.Arrivals');
OPEN Dependents;
FETCH NEXT FROM Dependents INTO @grant;
WHILE @@FETCH_STATUS = 0
BEGIN
    EXEC (@grant);
    FETCH NEXT FROM Dependents INTO @grant;
END;
CLOSE Dependents;
DEALLOCATE Dependents;
GO

-- Settings, the company's name and signing in.
GRANT SELECT ON dbo.PortSettings TO StationOperator;
GRANT UPDATE ON dbo.PortSettings (RegistryValue) TO StationOperator;
GRANT SELECT ON dbo.Project_Registry (registrykey, value) TO StationOperator;
GRANT UPDATE ON dbo.Project_Registry (value) TO StationOperator;
GRANT SELECT ON dbo.StationUsers (UserName, PasswordHash, UserLevel) TO StationOperator;
GRANT SELECT ON dbo.StationSchema TO StationOperator;
GO

-- Reading, for reports of one's own.
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
