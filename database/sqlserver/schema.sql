-- The station's tables, functions and rows on SQL Server, for a mill with or without an accounting
-- database. Only what is missing is created: an existing table, function or row is not changed, so
-- the script may be run several times, also after an interruption. A line with only GO ends a batch.
--
-- Names are spelled as in the accounting database. The key of Arrivals is spelled ArrivalID, so that
-- the dependent-record test can replace it by a foreign column with another name. The database must
-- have a case-insensitive collation. Dates are datetime and no text is longer than 4,000 characters,
-- because the driver "SQL Server" of Windows supports neither date nor nvarchar(max). Weights are
-- kilograms.
--
-- A key with a name StationKeyOf... shows that this script created the table. Foreign keys are added
-- only between such tables. Tables of the site are not changed.

SET XACT_ABORT ON;
SET ANSI_NULLS ON;
SET QUOTED_IDENTIFIER ON;
GO

IF OBJECT_ID(N'dbo.Cities') IS NULL
    CREATE TABLE dbo.Cities (
        CityId   int NOT NULL CONSTRAINT StationKeyOfCities PRIMARY KEY,
        CityName nvarchar(60) NOT NULL
    );
GO

-- The party lists are ordered by the account's name.
IF OBJECT_ID(N'dbo.ChartOfAccounts') IS NULL
BEGIN
    BEGIN TRANSACTION;
    CREATE TABLE dbo.ChartOfAccounts (
        AccountNo   nvarchar(20) NOT NULL CONSTRAINT StationKeyOfChartOfAccounts PRIMARY KEY,
        AccountName nvarchar(100) NOT NULL,
        IsEditable  bit NOT NULL DEFAULT 1
    );
    CREATE INDEX ChartOfAccountsByName ON dbo.ChartOfAccounts (AccountName);
    COMMIT TRANSACTION;
END;
GO

IF OBJECT_ID(N'dbo.Parties') IS NULL
BEGIN
    BEGIN TRANSACTION;
    CREATE TABLE dbo.Parties (
        PartyId  nvarchar(20) NOT NULL CONSTRAINT StationKeyOfParties PRIMARY KEY,
        CityId   int NULL,
        Address  nvarchar(200) NULL,
        IsSeller bit NOT NULL DEFAULT 0,
        IsBuyer  bit NOT NULL DEFAULT 0,
        IsBroker bit NOT NULL DEFAULT 0
    );
    CREATE INDEX PartiesByCity ON dbo.Parties (CityId);
    COMMIT TRANSACTION;
END;
GO

IF OBJECT_ID(N'dbo.Commodities') IS NULL
    CREATE TABLE dbo.Commodities (
        CommodityId      int NOT NULL CONSTRAINT StationKeyOfCommodities PRIMARY KEY,
        CommodityName    nvarchar(60) NOT NULL UNIQUE,
        IsPurchaseable   bit NOT NULL DEFAULT 0,
        IsSaleable       bit NOT NULL DEFAULT 0,
        IsWheatCommodity bit NOT NULL DEFAULT 0
    );
GO

IF OBJECT_ID(N'dbo.BagsClasses') IS NULL
    CREATE TABLE dbo.BagsClasses (
        BagsClassId int NOT NULL CONSTRAINT StationKeyOfBagsClasses PRIMARY KEY,
        BagsClass   nvarchar(40) NOT NULL UNIQUE
    );
GO

IF OBJECT_ID(N'dbo.BagsTypes') IS NULL
    CREATE TABLE dbo.BagsTypes (
        BagsTypeId int NOT NULL CONSTRAINT StationKeyOfBagsTypes PRIMARY KEY,
        BagsType   nvarchar(40) NOT NULL UNIQUE
    );
GO

IF OBJECT_ID(N'dbo.PRCenters') IS NULL
    CREATE TABLE dbo.PRCenters (
        CenterId   int NOT NULL CONSTRAINT StationKeyOfPRCenters PRIMARY KEY,
        CenterName nvarchar(60) NOT NULL
    );
GO

IF OBJECT_ID(N'dbo.PContracts') IS NULL
BEGIN
    BEGIN TRANSACTION;
    CREATE TABLE dbo.PContracts (
        ContractId   int NOT NULL CONSTRAINT StationKeyOfPContracts PRIMARY KEY,
        ContractDate datetime NOT NULL,
        PartyId      nvarchar(20) NOT NULL
    );
    CREATE INDEX PContractsByParty ON dbo.PContracts (PartyId);
    COMMIT TRANSACTION;
END;
GO

-- NoOfBags, BagWeight and TareWeight are figures of the books. The station leaves them Null; an
-- arrival that has them counts as posted.
IF OBJECT_ID(N'dbo.Arrivals') IS NULL
BEGIN
    BEGIN TRANSACTION;
    CREATE TABLE dbo.Arrivals (
        ArrivalID   int NOT NULL CONSTRAINT StationKeyOfArrivals PRIMARY KEY,
        ArrivalDate datetime NOT NULL
            CHECK (ArrivalDate = CAST(CAST(ArrivalDate AS date) AS datetime)),
        PermitNo    nvarchar(30) NULL,
        CenterId    int NULL,
        CommodityId int NOT NULL,
        SellerId    nvarchar(20) NOT NULL,
        ContractId  int NULL,
        IsPosted    smallint NOT NULL DEFAULT 0,
        NoOfBags    decimal(18, 4) NULL,
        BagWeight   float NULL,
        TareWeight  float NULL
    );
    -- Includes the other columns of the arrival search, which then reads only this index.
    CREATE INDEX ArrivalsByDate ON dbo.Arrivals (ArrivalDate) INCLUDE (CommodityId, SellerId);
    CREATE INDEX ArrivalsBySeller ON dbo.Arrivals (SellerId);
    CREATE INDEX ArrivalsByCommodity ON dbo.Arrivals (CommodityId);
    CREATE INDEX ArrivalsByCenter ON dbo.Arrivals (CenterId);
    CREATE INDEX ArrivalsByContract ON dbo.Arrivals (ContractId);
    COMMIT TRANSACTION;
END;
GO

-- A line is deleted by its LineId, which the station never writes. Bag class and type have no foreign
-- keys: they are 0 for a name on no list. The lines are clustered by arrival, so that a station that
-- reads those of one arrival never waits for a station that saves another one.
IF OBJECT_ID(N'dbo.ArrivalsBody') IS NULL
BEGIN
    BEGIN TRANSACTION;
    CREATE TABLE dbo.ArrivalsBody (
        LineId         int IDENTITY NOT NULL
            CONSTRAINT StationKeyOfArrivalsBody PRIMARY KEY NONCLUSTERED,
        ArrivalId      int NOT NULL,
        CommodityId    int NOT NULL,
        BagsClassId    int NOT NULL,
        BagsTypeId     int NOT NULL,
        NoOfBags       decimal(18, 4) NOT NULL,
        VehicleNo      nvarchar(20) NULL,
        TareWeight     float NOT NULL,
        ScaleDeduction float NOT NULL,
        BagWeight      float NOT NULL,
        BagsDeduction  float NOT NULL,
        OtherDeduction float NOT NULL,
        NetWeight      float NOT NULL,
        DriverName     nvarchar(60) NULL,
        BiltyNo        nvarchar(20) NULL,
        VehicleNoText  nvarchar(20) NULL
    );
    CREATE CLUSTERED INDEX ArrivalsBodyByArrival ON dbo.ArrivalsBody (ArrivalId);
    CREATE INDEX ArrivalsBodyByCommodity ON dbo.ArrivalsBody (CommodityId);
    COMMIT TRANSACTION;
END;
GO

-- The books' purchases, which may refer to an arrival.
IF OBJECT_ID(N'dbo.PurchaseBody') IS NULL
BEGIN
    BEGIN TRANSACTION;
    CREATE TABLE dbo.PurchaseBody (
        PurchaseLineId int IDENTITY NOT NULL CONSTRAINT StationKeyOfPurchaseBody PRIMARY KEY,
        PurchaseId     int NOT NULL,
        ArrivalId      int NULL,
        Quantity       float NOT NULL DEFAULT 0,
        Rate           float NOT NULL DEFAULT 0
    );
    CREATE INDEX PurchaseBodyByArrival ON dbo.PurchaseBody (ArrivalId);
    COMMIT TRANSACTION;
END;
GO

-- Other tables of a mill that refer to an arrival or a sale. No statement of the station needs these
-- three, so they are not created if the site has its own table of arrivals.
IF OBJECT_ID(N'dbo.StationKeyOfArrivals') IS NOT NULL
    AND OBJECT_ID(N'dbo.LaboratoryReports') IS NULL
BEGIN
    BEGIN TRANSACTION;
    CREATE TABLE dbo.LaboratoryReports (
        ReportId        int IDENTITY NOT NULL CONSTRAINT StationKeyOfLaboratoryReports PRIMARY KEY,
        SampleArrivalNo int NOT NULL,
        Moisture        float NULL,
        Gluten          float NULL,
        Remarks         nvarchar(200) NULL
    );
    CREATE INDEX LaboratoryReportsByArrival ON dbo.LaboratoryReports (SampleArrivalNo);
    COMMIT TRANSACTION;
END;
GO

IF OBJECT_ID(N'dbo.StationKeyOfArrivals') IS NOT NULL AND OBJECT_ID(N'dbo.Sales') IS NULL
BEGIN
    BEGIN TRANSACTION;
    CREATE TABLE dbo.Sales (
        Salesid  int NOT NULL CONSTRAINT StationKeyOfSales PRIMARY KEY,
        SaleDate datetime NOT NULL,
        BuyerId  nvarchar(20) NOT NULL
    );
    CREATE INDEX SalesByBuyer ON dbo.Sales (BuyerId);
    COMMIT TRANSACTION;
END;
GO

IF OBJECT_ID(N'dbo.StationKeyOfArrivals') IS NOT NULL
    AND OBJECT_ID(N'dbo.SaleRecoveryBody') IS NULL
BEGIN
    BEGIN TRANSACTION;
    CREATE TABLE dbo.SaleRecoveryBody (
        RecoveryLineId int IDENTITY NOT NULL CONSTRAINT StationKeyOfSaleRecoveryBody PRIMARY KEY,
        SaleId         int NOT NULL,
        Amount         float NOT NULL DEFAULT 0
    );
    CREATE INDEX SaleRecoveryBodyBySale ON dbo.SaleRecoveryBody (SaleId);
    COMMIT TRANSACTION;
END;
GO

-- No key on the names of PortSettings: the station reads it by filters and accepts duplicate rows.
IF OBJECT_ID(N'dbo.PortSettings') IS NULL
BEGIN
    BEGIN TRANSACTION;
    CREATE TABLE dbo.PortSettings (
        RegistryKey   nvarchar(40) NOT NULL,
        RegistryValue nvarchar(100) NULL
    );
    CREATE CLUSTERED INDEX PortSettingsByKey ON dbo.PortSettings (RegistryKey);
    COMMIT TRANSACTION;
END;
GO

IF OBJECT_ID(N'dbo.Project_Registry') IS NULL
    CREATE TABLE dbo.Project_Registry (
        registrykey nvarchar(40) NOT NULL CONSTRAINT StationKeyOfProject_Registry PRIMARY KEY,
        value       nvarchar(400) NULL
    );
GO

IF OBJECT_ID(N'dbo.StationUsers') IS NULL
    CREATE TABLE dbo.StationUsers (
        UserName     nvarchar(60) NOT NULL CONSTRAINT StationKeyOfStationUsers PRIMARY KEY,
        PasswordHash nvarchar(200) NOT NULL,
        UserLevel    int NOT NULL
    );
GO

IF OBJECT_ID(N'dbo.StationSchema') IS NULL
    CREATE TABLE dbo.StationSchema (
        SchemaVersion float NOT NULL
    );
GO

-- Relations between tables that were both created here.

IF OBJECT_ID(N'dbo.StationKeyOfParties') IS NOT NULL
    AND OBJECT_ID(N'dbo.StationKeyOfChartOfAccounts') IS NOT NULL
    AND OBJECT_ID(N'dbo.StationLinkOfPartiesPartyId') IS NULL
    ALTER TABLE dbo.Parties ADD CONSTRAINT StationLinkOfPartiesPartyId
        FOREIGN KEY (PartyId) REFERENCES dbo.ChartOfAccounts (AccountNo);
GO

IF OBJECT_ID(N'dbo.StationKeyOfParties') IS NOT NULL
    AND OBJECT_ID(N'dbo.StationKeyOfCities') IS NOT NULL
    AND OBJECT_ID(N'dbo.StationLinkOfPartiesCityId') IS NULL
    ALTER TABLE dbo.Parties ADD CONSTRAINT StationLinkOfPartiesCityId
        FOREIGN KEY (CityId) REFERENCES dbo.Cities (CityId);
GO

IF OBJECT_ID(N'dbo.StationKeyOfPContracts') IS NOT NULL
    AND OBJECT_ID(N'dbo.StationKeyOfParties') IS NOT NULL
    AND OBJECT_ID(N'dbo.StationLinkOfPContractsPartyId') IS NULL
    ALTER TABLE dbo.PContracts ADD CONSTRAINT StationLinkOfPContractsPartyId
        FOREIGN KEY (PartyId) REFERENCES dbo.Parties (PartyId);
GO

IF OBJECT_ID(N'dbo.StationKeyOfArrivals') IS NOT NULL
    AND OBJECT_ID(N'dbo.StationKeyOfPRCenters') IS NOT NULL
    AND OBJECT_ID(N'dbo.StationLinkOfArrivalsCenterId') IS NULL
    ALTER TABLE dbo.Arrivals ADD CONSTRAINT StationLinkOfArrivalsCenterId
        FOREIGN KEY (CenterId) REFERENCES dbo.PRCenters (CenterId);
GO

IF OBJECT_ID(N'dbo.StationKeyOfArrivals') IS NOT NULL
    AND OBJECT_ID(N'dbo.StationKeyOfCommodities') IS NOT NULL
    AND OBJECT_ID(N'dbo.StationLinkOfArrivalsCommodityId') IS NULL
    ALTER TABLE dbo.Arrivals ADD CONSTRAINT StationLinkOfArrivalsCommodityId
        FOREIGN KEY (CommodityId) REFERENCES dbo.Commodities (CommodityId);
GO

IF OBJECT_ID(N'dbo.StationKeyOfArrivals') IS NOT NULL
    AND OBJECT_ID(N'dbo.StationKeyOfParties') IS NOT NULL
    AND OBJECT_ID(N'dbo.StationLinkOfArrivalsSellerId') IS NULL
    ALTER TABLE dbo.Arrivals ADD CONSTRAINT StationLinkOfArrivalsSellerId
        FOREIGN KEY (SellerId) REFERENCES dbo.Parties (PartyId);
GO

IF OBJECT_ID(N'dbo.StationKeyOfArrivals') IS NOT NULL
    AND OBJECT_ID(N'dbo.StationKeyOfPContracts') IS NOT NULL
    AND OBJECT_ID(N'dbo.StationLinkOfArrivalsContractId') IS NULL
    ALTER TABLE dbo.Arrivals ADD CONSTRAINT StationLinkOfArrivalsContractId
        FOREIGN KEY (ContractId) REFERENCES dbo.PContracts (ContractId);
GO

IF OBJECT_ID(N'dbo.StationKeyOfArrivalsBody') IS NOT NULL
    AND OBJECT_ID(N'dbo.StationKeyOfArrivals') IS NOT NULL
    AND OBJECT_ID(N'dbo.StationLinkOfArrivalsBodyArrivalId') IS NULL
    ALTER TABLE dbo.ArrivalsBody ADD CONSTRAINT StationLinkOfArrivalsBodyArrivalId
        FOREIGN KEY (ArrivalId) REFERENCES dbo.Arrivals (ArrivalID);
GO

IF OBJECT_ID(N'dbo.StationKeyOfArrivalsBody') IS NOT NULL
    AND OBJECT_ID(N'dbo.StationKeyOfCommodities') IS NOT NULL
    AND OBJECT_ID(N'dbo.StationLinkOfArrivalsBodyCommodityId') IS NULL
    ALTER TABLE dbo.ArrivalsBody ADD CONSTRAINT StationLinkOfArrivalsBodyCommodityId
        FOREIGN KEY (CommodityId) REFERENCES dbo.Commodities (CommodityId);
GO

IF OBJECT_ID(N'dbo.StationKeyOfPurchaseBody') IS NOT NULL
    AND OBJECT_ID(N'dbo.StationKeyOfArrivals') IS NOT NULL
    AND OBJECT_ID(N'dbo.StationLinkOfPurchaseBodyArrivalId') IS NULL
    ALTER TABLE dbo.PurchaseBody ADD CONSTRAINT StationLinkOfPurchaseBodyArrivalId
        FOREIGN KEY (ArrivalId) REFERENCES dbo.Arrivals (ArrivalID);
GO

IF OBJECT_ID(N'dbo.StationKeyOfLaboratoryReports') IS NOT NULL
    AND OBJECT_ID(N'dbo.StationKeyOfArrivals') IS NOT NULL
    AND OBJECT_ID(N'dbo.StationLinkOfLaboratoryReportsSampleArrivalNo') IS NULL
    ALTER TABLE dbo.LaboratoryReports ADD CONSTRAINT StationLinkOfLaboratoryReportsSampleArrivalNo
        FOREIGN KEY (SampleArrivalNo) REFERENCES dbo.Arrivals (ArrivalID);
GO

IF OBJECT_ID(N'dbo.StationKeyOfSales') IS NOT NULL
    AND OBJECT_ID(N'dbo.StationKeyOfParties') IS NOT NULL
    AND OBJECT_ID(N'dbo.StationLinkOfSalesBuyerId') IS NULL
    ALTER TABLE dbo.Sales ADD CONSTRAINT StationLinkOfSalesBuyerId
        FOREIGN KEY (BuyerId) REFERENCES dbo.Parties (PartyId);
GO

IF OBJECT_ID(N'dbo.StationKeyOfSaleRecoveryBody') IS NOT NULL
    AND OBJECT_ID(N'dbo.StationKeyOfSales') IS NOT NULL
    AND OBJECT_ID(N'dbo.StationLinkOfSaleRecoveryBodySaleId') IS NULL
    ALTER TABLE dbo.SaleRecoveryBody ADD CONSTRAINT StationLinkOfSaleRecoveryBodySaleId
        FOREIGN KEY (SaleId) REFERENCES dbo.Sales (Salesid);
GO

-- The searches and lists call these functions for every row. Each has one RETURN of one expression
-- and is bound to its tables (SCHEMABINDING), so that the server can inline it into the query. A
-- function on a table of the site is not bound, because the site could then not change the table. The
-- statement that creates a function must begin its batch, so it is run as a text. Neither function
-- trims: a site may pad its names with blanks, and the party search shows these too.

DECLARE @binding nvarchar(30) =
    CASE WHEN OBJECT_ID(N'dbo.StationKeyOfChartOfAccounts') IS NOT NULL
          AND OBJECT_ID(N'dbo.StationKeyOfParties') IS NOT NULL
          AND OBJECT_ID(N'dbo.StationKeyOfCities') IS NOT NULL
         THEN N'WITH SCHEMABINDING' ELSE N'' END;
IF OBJECT_ID(N'dbo.FunGetPartyName') IS NULL
    EXEC (N'CREATE FUNCTION dbo.FunGetPartyName (@AccountNo nvarchar(60))
RETURNS nvarchar(400)
' + @binding + N'
AS
BEGIN
    RETURN (SELECT CASE WHEN Cities.CityName IS NULL THEN ChartOfAccounts.AccountName
                        ELSE ChartOfAccounts.AccountName + N''-'' + Cities.CityName END
            FROM dbo.ChartOfAccounts
            LEFT OUTER JOIN dbo.Parties ON Parties.PartyId = ChartOfAccounts.AccountNo
            LEFT OUTER JOIN dbo.Cities ON Cities.CityId = Parties.CityId
            WHERE ChartOfAccounts.AccountNo = @AccountNo);
END');
GO

DECLARE @binding nvarchar(30) =
    CASE WHEN OBJECT_ID(N'dbo.StationKeyOfCommodities') IS NOT NULL
         THEN N'WITH SCHEMABINDING' ELSE N'' END;
IF OBJECT_ID(N'dbo.FunGetCommodity') IS NULL
    EXEC (N'CREATE FUNCTION dbo.FunGetCommodity (@CommodityId int)
RETURNS nvarchar(400)
' + @binding + N'
AS
BEGIN
    RETURN (SELECT CommodityName FROM dbo.Commodities WHERE CommodityId = @CommodityId);
END');
GO

-- Rows that the station updates and never inserts. A table of the site may have other required
-- columns: a row that it does not accept is printed and left out. The version is written last: it
-- shows that the database is complete.

DECLARE @key nvarchar(40), @value nvarchar(100);
DECLARE Settings CURSOR LOCAL FAST_FORWARD FOR
    SELECT Defaults.SettingKey, Defaults.SettingValue
        FROM (VALUES (N'PortName', N'1'), (N'PortSettings', N'9600,n,8,1'),
                     (N'DataDirection', N'Right'), (N'DataLength', N'6'), (N'IsReversed', N'0'))
            AS Defaults (SettingKey, SettingValue)
        WHERE NOT EXISTS (SELECT 1 FROM dbo.PortSettings
                          WHERE RegistryKey = Defaults.SettingKey);
OPEN Settings;
FETCH NEXT FROM Settings INTO @key, @value;
WHILE @@FETCH_STATUS = 0
BEGIN
    BEGIN TRY
        INSERT INTO dbo.PortSettings (RegistryKey, RegistryValue) VALUES (@key, @value);
    END TRY
    BEGIN CATCH
        PRINT N'Not added to PortSettings: ' + @key + N'. ' + ERROR_MESSAGE();
    END CATCH;
    FETCH NEXT FROM Settings INTO @key, @value;
END;
CLOSE Settings;
DEALLOCATE Settings;
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

IF NOT EXISTS (SELECT 1 FROM dbo.StationSchema)
    INSERT INTO dbo.StationSchema (SchemaVersion) VALUES (2);
GO

SET XACT_ABORT OFF;
GO
