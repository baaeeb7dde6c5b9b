-- A realistic accounting database of a mill: names in other cases, more columns than the station
-- uses, padded names, decimals and money in place of whole numbers, columns that the server fills
-- itself, lines without a key, and dependent tables whose foreign columns have other names, or two
-- of them.

CREATE TABLE dbo.CITIES (
    CITYID decimal(9, 0) NOT NULL PRIMARY KEY,
    CITYNAME char(30) NOT NULL,
    District varchar(40) NULL
);
CREATE TABLE dbo.chartofaccounts (
    RecordNo int IDENTITY NOT NULL,
    accountno char(12) NOT NULL PRIMARY KEY,
    accountname char(50) NOT NULL,
    iseditable tinyint NOT NULL,
    OpeningBalance money NOT NULL DEFAULT 0
);
CREATE TABLE dbo.PARTIES (
    partyid char(12) NOT NULL PRIMARY KEY REFERENCES dbo.chartofaccounts (accountno),
    CITYID decimal(9, 0) NULL REFERENCES dbo.CITIES (CITYID),
    ADDRESS varchar(200) NULL,
    isSeller tinyint NOT NULL,
    isBuyer tinyint NOT NULL,
    isBroker tinyint NOT NULL,
    CreditLimit money NULL
);
CREATE TABLE dbo.COMMODITIES (
    COMMODITYID decimal(9, 0) NOT NULL PRIMARY KEY,
    COMMODITYNAME char(40) NOT NULL,
    ISPURCHASEABLE bit NOT NULL,
    ISSALEABLE bit NOT NULL,
    ISWHEATCOMMODITY bit NOT NULL,
    CostRate money NULL
);
CREATE TABLE dbo.BAGSCLASSES (BAGSCLASSID decimal(9, 0) NOT NULL, BAGSCLASS char(20) NOT NULL);
CREATE TABLE dbo.BAGSTYPES (BAGSTYPEID decimal(9, 0) NOT NULL, BAGSTYPE char(20) NOT NULL);
GO

CREATE TABLE dbo.ARRIVALS (
    RecordNo int IDENTITY NOT NULL,
    ArrivalID decimal(12, 0) NOT NULL PRIMARY KEY,
    COMPANYID int NOT NULL DEFAULT 1,
    ARRIVALDATE datetime NOT NULL,
    PERMITNO char(10) NULL,
    CENTERID decimal(9, 0) NULL,
    COMMODITYID decimal(9, 0) NOT NULL REFERENCES dbo.COMMODITIES (COMMODITYID),
    SELLERID char(12) NOT NULL REFERENCES dbo.PARTIES (partyid),
    CONTRACTID decimal(9, 0) NULL,
    ISPOSTED tinyint NOT NULL,
    NOOFBAGS decimal(12, 3) NULL,
    BAGWEIGHT money NULL,
    TAREWEIGHT money NULL,
    EnteredOn datetime NOT NULL DEFAULT GETDATE(),
    GrossWeight AS NOOFBAGS * BAGWEIGHT,
    Notes nvarchar(max) NULL,
    UNIQUE (ArrivalID, COMPANYID)
);
CREATE TABLE dbo.ARRIVALSBODY (
    ARRIVALID decimal(12, 0) NOT NULL REFERENCES dbo.ARRIVALS (ArrivalID),
    COMMODITYID decimal(9, 0) NOT NULL,
    BAGSCLASSID decimal(9, 0) NOT NULL,
    BAGSTYPEID decimal(9, 0) NOT NULL,
    NOOFBAGS decimal(12, 3) NOT NULL,
    VEHICLENO char(10) NULL,
    TAREWEIGHT money NOT NULL,
    SCALEDEDUCTION money NOT NULL,
    BAGWEIGHT float NOT NULL,
    BAGSDEDUCTION money NOT NULL,
    OTHERDEDUCTION float NOT NULL,
    NETWEIGHT float NOT NULL,
    DRIVERNAME char(30) NULL,
    BILTYNO char(10) NULL,
    VEHICLENOTEXT varchar(10) NULL,
    LineGross AS NOOFBAGS * BAGWEIGHT,
    Remarks nvarchar(100) NULL
);
CREATE TABLE dbo.PURCHASEBODY (
    PurchaseId int NOT NULL,
    ARRIVALID decimal(12, 0) NULL REFERENCES dbo.ARRIVALS (ArrivalID),
    Amount money NULL
);
CREATE TABLE dbo.GateSamples (
    SampleNo int IDENTITY NOT NULL PRIMARY KEY,
    TakenFrom decimal(12, 0) NOT NULL REFERENCES dbo.ARRIVALS (ArrivalID)
);
CREATE TABLE dbo.FreightClaims (
    ClaimNo int NOT NULL PRIMARY KEY,
    LoadNo decimal(12, 0) NOT NULL,
    LoadCompany int NOT NULL,
    FOREIGN KEY (LoadNo, LoadCompany) REFERENCES dbo.ARRIVALS (ArrivalID, COMPANYID)
);
CREATE TABLE dbo.Payroll (EmployeeNo int NOT NULL PRIMARY KEY, Salary money NOT NULL);
CREATE TABLE dbo.PORTSETTINGS (
    REGISTRYKEY char(20) NOT NULL,
    REGISTRYVALUE varchar(50) NULL,
    ChangedOn datetime NOT NULL DEFAULT GETDATE()
);
CREATE TABLE dbo.PROJECT_REGISTRY (
    REGISTRYKEY char(20) NOT NULL,
    VALUE varchar(100) NULL
);
GO

-- A function of the site, which is not replaced: it shows the account's number too.
CREATE FUNCTION dbo.fungetpartyname (@account char(12))
RETURNS varchar(100)
AS
BEGIN
    DECLARE @name varchar(100);
    SELECT @name = RTRIM(accountname) + ' (' + RTRIM(accountno) + ')'
        FROM dbo.chartofaccounts WHERE accountno = @account;
    RETURN @name;
END;
GO

INSERT INTO dbo.CITIES (CITYID, CITYNAME) VALUES (1, 'Okara'), (2, 'Lahore');
INSERT INTO dbo.chartofaccounts (accountno, accountname, iseditable, OpeningBalance) VALUES
    ('601', 'Zahid Traders', 1, 5000), ('602', 'Akbar Mills', 0, 0), ('603', 'Bashir', 1, 0),
    ('101', 'Cash in Hand', 0, 900000);
INSERT INTO dbo.PARTIES (partyid, CITYID, ADDRESS, isSeller, isBuyer, isBroker, CreditLimit) VALUES
    ('601', 1, 'Grain Market', 1, 0, 0, 100000), ('602', 2, NULL, 1, 1, 0, NULL),
    ('603', NULL, NULL, 0, 0, 1, NULL);
INSERT INTO dbo.COMMODITIES (COMMODITYID, COMMODITYNAME, ISPURCHASEABLE, ISSALEABLE,
        ISWHEATCOMMODITY, CostRate) VALUES
    (1, 'Wheat', 1, 0, 1, 97.5), (2, 'Flour', 0, 1, 0, 120);
INSERT INTO dbo.BAGSCLASSES (BAGSCLASSID, BAGSCLASS) VALUES (1, 'Jute'), (2, 'Plastic');
INSERT INTO dbo.BAGSTYPES (BAGSTYPEID, BAGSTYPE) VALUES (1, '100 Kg'), (2, '50 Kg');
INSERT INTO dbo.ARRIVALS (ArrivalID, ARRIVALDATE, COMMODITYID, SELLERID, ISPOSTED, Notes) VALUES
    (11, '2026-10-01T00:00:00', 1, '601', 0, N'گندم'), (12, '2026-10-02T00:00:00', 1, '602', 0, NULL),
    (13, '2026-10-03T00:00:00', 1, '601', 0, NULL), (14, '2026-10-04T00:00:00', 1, '601', 0, NULL),
    (15, '2026-10-05T00:00:00', 1, '601', 1, NULL);
UPDATE dbo.ARRIVALS SET NOOFBAGS = 200, BAGWEIGHT = 100.5, TAREWEIGHT = 9875 WHERE ArrivalID = 15;
INSERT INTO dbo.ARRIVALSBODY (ARRIVALID, COMMODITYID, BAGSCLASSID, BAGSTYPEID, NOOFBAGS, VEHICLENO,
        TAREWEIGHT, SCALEDEDUCTION, BAGWEIGHT, BAGSDEDUCTION, OTHERDEDUCTION, NETWEIGHT, DRIVERNAME,
        BILTYNO, VEHICLENOTEXT) VALUES
    (11, 1, 1, 1, 30, 'LEA-1', 2000, 0, 100.1, 0, 45, 2955, 'Ali', '7', 'LEA-1'),
    (11, 1, 2, 2, 10, '', 0, 0, 100.1, 0, 15, 985, 'Ali', '7', 'LEA-1'),
    (11, 1, 2, 2, 10, '', 0, 0, 100.1, 0, 15, 985, 'Ali', '7', 'LEA-1'),
    (12, 1, 1, 1, 5, 'FDS-2', 1500, 0, 99.9, 0, 0, 499.5, NULL, NULL, 'FDS-2');
INSERT INTO dbo.PURCHASEBODY (PurchaseId, ARRIVALID, Amount) VALUES (77, 12, 48701.25);
INSERT INTO dbo.GateSamples (TakenFrom) VALUES (13);
INSERT INTO dbo.FreightClaims (ClaimNo, LoadNo, LoadCompany) VALUES (1, 14, 1);
INSERT INTO dbo.Payroll (EmployeeNo, Salary) VALUES (1, 40000);
INSERT INTO dbo.PORTSETTINGS (REGISTRYKEY, REGISTRYVALUE) VALUES
    ('PortName', '2'), ('PortSettings', '2400,n,8,1'), ('DataDirection', 'Left');
INSERT INTO dbo.PROJECT_REGISTRY (REGISTRYKEY, VALUE) VALUES
    ('CompanyName', 'VELTRANE'), ('FiscalYear', '2026');
GO
