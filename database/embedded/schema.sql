-- The station's own database, for a mill without an accounting database that the station could use.
--
-- Names are spelled as the accounting database spells them. The key of Arrivals is spelled
-- ArrivalID, so that the dependent-record test can turn it into a foreign column of another name.
-- Text is compared without regard to case, by the only such collation that all tools for these
-- files know. Dates are text, YYYY-MM-DDT00:00:00. Flags are 0 or 1. Weights are kilograms.

CREATE TABLE Cities (
    CityId   INTEGER NOT NULL PRIMARY KEY,
    CityName TEXT NOT NULL COLLATE NOCASE
);

CREATE TABLE ChartOfAccounts (
    AccountNo   TEXT NOT NULL COLLATE NOCASE PRIMARY KEY,
    AccountName TEXT NOT NULL COLLATE NOCASE,
    IsEditable  INTEGER NOT NULL DEFAULT 1
);
-- The party lists are ordered by the account's name.
CREATE INDEX ChartOfAccountsByName ON ChartOfAccounts (AccountName);

CREATE TABLE Parties (
    PartyId  TEXT NOT NULL COLLATE NOCASE PRIMARY KEY REFERENCES ChartOfAccounts (AccountNo),
    CityId   INTEGER REFERENCES Cities (CityId),
    Address  TEXT COLLATE NOCASE,
    IsSeller INTEGER NOT NULL DEFAULT 0,
    IsBuyer  INTEGER NOT NULL DEFAULT 0,
    IsBroker INTEGER NOT NULL DEFAULT 0
);
CREATE INDEX PartiesByCity ON Parties (CityId);

CREATE TABLE Commodities (
    CommodityId      INTEGER NOT NULL PRIMARY KEY,
    CommodityName    TEXT NOT NULL COLLATE NOCASE UNIQUE,
    IsPurchaseable   INTEGER NOT NULL DEFAULT 0,
    IsSaleable       INTEGER NOT NULL DEFAULT 0,
    IsWheatCommodity INTEGER NOT NULL DEFAULT 0
);

CREATE TABLE BagsClasses (
    BagsClassId INTEGER NOT NULL PRIMARY KEY,
    BagsClass   TEXT NOT NULL COLLATE NOCASE UNIQUE
);

CREATE TABLE BagsTypes (
    BagsTypeId INTEGER NOT NULL PRIMARY KEY,
    BagsType   TEXT NOT NULL COLLATE NOCASE UNIQUE
);

CREATE TABLE PRCenters (
    CenterId   INTEGER NOT NULL PRIMARY KEY,
    CenterName TEXT NOT NULL COLLATE NOCASE
);

CREATE TABLE PContracts (
    ContractId   INTEGER NOT NULL PRIMARY KEY,
    ContractDate DATETIME NOT NULL,
    PartyId      TEXT NOT NULL COLLATE NOCASE REFERENCES Parties (PartyId)
);
CREATE INDEX PContractsByParty ON PContracts (PartyId);

-- NoOfBags, BagWeight and TareWeight are the books' own figures: the station leaves them Null, and
-- a record that has them counts as posted.
CREATE TABLE Arrivals (
    ArrivalID   INTEGER NOT NULL PRIMARY KEY,
    ArrivalDate DATETIME NOT NULL
        CHECK (ArrivalDate GLOB '[0-9][0-9][0-9][0-9]-[01][0-9]-[0-3][0-9]T00:00:00'),
    PermitNo    TEXT COLLATE NOCASE,
    CenterId    INTEGER REFERENCES PRCenters (CenterId),
    CommodityId INTEGER NOT NULL REFERENCES Commodities (CommodityId),
    SellerId    TEXT NOT NULL COLLATE NOCASE REFERENCES Parties (PartyId),
    ContractId  INTEGER REFERENCES PContracts (ContractId),
    IsPosted    INTEGER NOT NULL DEFAULT 0,
    NoOfBags    NUMERIC,
    BagWeight   REAL,
    TareWeight  REAL
);
CREATE INDEX ArrivalsByDate ON Arrivals (ArrivalDate);
CREATE INDEX ArrivalsBySeller ON Arrivals (SellerId);
CREATE INDEX ArrivalsByCommodity ON Arrivals (CommodityId);
CREATE INDEX ArrivalsByCenter ON Arrivals (CenterId);
CREATE INDEX ArrivalsByContract ON Arrivals (ContractId);

-- A line is deleted by its LineId, which the station never writes. A number is never used again: a
-- station deletes the numbers that it has read, and another one may have saved since. Bag class and
-- type have no foreign keys: they are 0 for a name on no list.
CREATE TABLE ArrivalsBody (
    LineId         INTEGER NOT NULL PRIMARY KEY AUTOINCREMENT,
    ArrivalId      INTEGER NOT NULL REFERENCES Arrivals (ArrivalID),
    CommodityId    INTEGER NOT NULL REFERENCES Commodities (CommodityId),
    BagsClassId    INTEGER NOT NULL,
    BagsTypeId     INTEGER NOT NULL,
    NoOfBags       NUMERIC NOT NULL,
    VehicleNo      TEXT COLLATE NOCASE,
    TareWeight     REAL NOT NULL,
    ScaleDeduction REAL NOT NULL,
    BagWeight      REAL NOT NULL,
    BagsDeduction  REAL NOT NULL,
    OtherDeduction REAL NOT NULL,
    NetWeight      REAL NOT NULL,
    DriverName     TEXT COLLATE NOCASE,
    BiltyNo        TEXT COLLATE NOCASE,
    VehicleNoText  TEXT COLLATE NOCASE
);
CREATE INDEX ArrivalsBodyByArrival ON ArrivalsBody (ArrivalId);
CREATE INDEX ArrivalsBodyByCommodity ON ArrivalsBody (CommodityId);

-- Tables of other programs that refer to arrivals: the books' purchases, and laboratory reports.
CREATE TABLE PurchaseBody (
    PurchaseLineId INTEGER NOT NULL PRIMARY KEY,
    PurchaseId     INTEGER NOT NULL,
    ArrivalId      INTEGER REFERENCES Arrivals (ArrivalID),
    Quantity       REAL NOT NULL DEFAULT 0,
    Rate           REAL NOT NULL DEFAULT 0
);
CREATE INDEX PurchaseBodyByArrival ON PurchaseBody (ArrivalId);

CREATE TABLE LaboratoryReports (
    ReportId        INTEGER NOT NULL PRIMARY KEY,
    SampleArrivalNo INTEGER NOT NULL REFERENCES Arrivals (ArrivalID),
    Moisture        REAL,
    Gluten          REAL,
    Remarks         TEXT COLLATE NOCASE
);
CREATE INDEX LaboratoryReportsByArrival ON LaboratoryReports (SampleArrivalNo);

CREATE TABLE Sales (
    Salesid  INTEGER NOT NULL PRIMARY KEY,
    SaleDate DATETIME NOT NULL,
    BuyerId  TEXT NOT NULL COLLATE NOCASE REFERENCES Parties (PartyId)
);
CREATE INDEX SalesByBuyer ON Sales (BuyerId);

CREATE TABLE SaleRecoveryBody (
    RecoveryLineId INTEGER NOT NULL PRIMARY KEY,
    SaleId         INTEGER NOT NULL REFERENCES Sales (Salesid),
    Amount         REAL NOT NULL DEFAULT 0
);
CREATE INDEX SaleRecoveryBodyBySale ON SaleRecoveryBody (SaleId);

-- No key on the names of PortSettings: the station reads it by filters and accepts duplicate rows.
CREATE TABLE PortSettings (
    RegistryKey   TEXT NOT NULL COLLATE NOCASE,
    RegistryValue TEXT COLLATE NOCASE
);
CREATE INDEX PortSettingsByKey ON PortSettings (RegistryKey);
INSERT INTO PortSettings (RegistryKey, RegistryValue) VALUES
    ('PortName', '1'),
    ('PortSettings', '9600,n,8,1'),
    ('DataDirection', 'Right'),
    ('DataLength', '6'),
    ('IsReversed', '0');

CREATE TABLE Project_Registry (
    registrykey TEXT NOT NULL COLLATE NOCASE PRIMARY KEY,
    value       TEXT COLLATE NOCASE
);

CREATE TABLE StationUsers (
    UserName     TEXT NOT NULL COLLATE NOCASE PRIMARY KEY,
    PasswordHash TEXT NOT NULL,
    UserLevel    INTEGER NOT NULL
);

CREATE TABLE StationSchema (
    SchemaVersion REAL NOT NULL
);
INSERT INTO StationSchema (SchemaVersion) VALUES (2);
