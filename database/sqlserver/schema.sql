-- The station's tables, functions and rows on SQL Server, for a mill with an accounting database or
-- without one. Only what is missing is made: a table, function or row that is there already stays
-- as it is, whoever made it, so the script may run as often as wanted. Broken off, it is simply run
-- again. Every line that holds nothing but GO ends a batch.
--
-- Names are spelled as the accounting database spells them. The key of Arrivals is spelled
-- ArrivalID, so that the dependent-record test can turn it into a foreign column of another name.
-- The database must have a collation that passes over case. Dates are datetime and no text is
-- longer than 4,000 characters, since the driver named SQL Server that comes with Windows knows
-- neither date nor nvarchar(max). Weights are kilograms.
--
-- The name of a key, StationKeyOf..., tells later parts of the script that the table was made here:
-- between such tables it draws relations, while it hangs nothing on a table of the site's own.

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

-- NoOfBags, BagWeight and TareWeight are the books' own figures: the station leaves them Null, and
-- a record that has them counts as posted.
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
    -- With what else the arrival search reads, so that its days are read from here alone.
    CREATE INDEX ArrivalsByDate ON dbo.Arrivals (ArrivalDate) INCLUDE (CommodityId, SellerId);
    CREATE INDEX ArrivalsBySeller ON dbo.Arrivals (SellerId);
    CREATE INDEX ArrivalsByCommodity ON dbo.Arrivals (CommodityId);
    CREATE INDEX ArrivalsByCenter ON dbo.Arrivals (CenterId);
    CREATE INDEX ArrivalsByContract ON dbo.Arrivals (ContractId);
    COMMIT TRANSACTION;
END;
GO

-- LineId gives each line a key to be deleted by; the station never writes it. The bag class and
-- type may be 0, which stands for a name on no list, so nothing ties them to their tables. The
-- lines lie together by arrival, so that a station which reads those of one arrival never waits for
-- another that is saving a different one.
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

-- The books' purchases, which may rest on an arrival.
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

-- What else a mill may hang on an arrival or a sale. No statement of the station needs these three,
-- so they are left out where the site has arrivals of its own.
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

-- No key on the names of PortSettings: the station reads it by filters and copes with doubled rows.
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

-- Relations, where both ends were made here.

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

-- The searches and lists call these for every row. Each is one RETURN of one expression, bound to
-- its tables, so that the server folds it into the query and reads the names with the rest of it.
-- Over a table of the site's own it stays unbound, since a bound one would keep the site from changing
-- its table. A function must begin its batch, so it goes as a text. Neither trims: a site may pad its
-- names, and the party search shows them padded too.

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

-- Rows that the station updates and never inserts. A table of the site's own may have further columns
-- that must be filled: such a row is named and left out. The number comes last: with it, all is there.

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
