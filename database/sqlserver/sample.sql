-- Rows for trying the station, the same as those of the embedded database. All names are invented.
-- Dates are counted back from the day of set-up, so that the search shows the arrivals at first.
-- The rows are added, all or none, to a database without accounts and arrivals.

SET XACT_ABORT ON;
GO

IF NOT EXISTS (SELECT 1 FROM dbo.ChartOfAccounts) AND NOT EXISTS (SELECT 1 FROM dbo.Arrivals)
BEGIN
BEGIN TRANSACTION;
DECLARE @today datetime = CAST(CAST(GETDATE() AS date) AS datetime);

INSERT INTO dbo.Cities (CityId, CityName) VALUES
    (1, N'Lahore'), (2, N'Faisalabad'), (3, N'Okara'), (4, N'Sahiwal'), (5, N'Multan'),
    (6, N'Sargodha'), (7, N'Gujranwala'), (8, N'Rahim Yar Khan'), (9, N'خانیوال');

-- Accounts from 6 on are the parties of the gate; 64 are buyers, 66 brokers. The others are the
-- mill's own ledgers, two of which trade with it.
INSERT INTO dbo.ChartOfAccounts (AccountNo, AccountName, IsEditable) VALUES
    (N'1010001', N'Cash in Hand', 0),
    (N'1010002', N'Bank Current Account', 0),
    (N'2010001', N'Mill Machinery', 0),
    (N'3010001', N'Staff Canteen', 1),
    (N'3010002', N'Mill Farm Dera Noorpur', 1),
    (N'5010001', N'Freight Inward', 0),
    (N'6010001', N'Chaudhry Grain Traders', 1),
    (N'6010002', N'Al-Barkat Commission Shop', 1),
    (N'6010003', N'Malik Wheat Store', 1),
    (N'6010004', N'Noor Brothers', 1),
    (N'6010005', N'Sandhu Agri Farm', 1),
    (N'6010006', N'Bismillah Ghalla Mandi', 1),
    (N'6010007', N'Rana & Sons', 1),
    (N'6010008', N'Warraich Zarai Farm', 1),
    (N'6010009', N'Green Field Growers', 1),
    (N'6010010', N'Sheikh Nadeem Traders', 1),
    (N'6010011', N'Gondal Commission Agents', 1),
    (N'6010012', N'Haji Rafiq & Company', 1),
    (N'6010013', N'Cheema Agro Services', 1),
    (N'6010014', N'Sitara Grain House', 1),
    (N'6010015', N'Punjab Kissan Corner', 1),
    (N'6010016', N'Kharal Farms', 1),
    (N'6010017', N'Mian Tariq Ghalla Store', 1),
    (N'6010018', N'Ravi Bank Growers', 1),
    (N'6010019', N'Noor Brothers', 1),
    (N'6010020', N'Dogar Wheat Suppliers', 1),
    (N'6010021', N'Bhatti Zamindara Shop', 1),
    (N'6010022', N'Province Food Godown No. 4', 0),
    (N'6010023', N'Closed Account Yousaf Traders', 0),
    (N'6010024', N'محمد اسلم اینڈ سنز', 1),
    (N'6010025', N'چوہدری غلہ منڈی', 1),
    (N'6010026', N'Zoë & Rémy Organic Farms', 1),
    (N'6010027', N'Señor Khan Seed Company', 1),
    (N'6010028', N'Tariq Mehmood Arhti', 1),
    (N'6040001', N'Madina Bakers', 1),
    (N'6040002', N'Shahi Naan Centre', 1),
    (N'6040003', N'Gulberg Sweets', 1),
    (N'6040004', N'City Feed Mill', 1),
    (N'6040005', N'Cattle Choice Wanda', 1),
    (N'6040006', N'Kareem General Store', 1),
    (N'6040007', N'Café Lyallpur', 1),
    (N'6040008', N'Army Supply Depot', 0),
    (N'6060001', N'Akram Broker', 1),
    (N'6060002', N'Saleem Dalal', 1),
    (N'6060003', N'Ijaz & Waqas Brokerage', 1),
    (N'6060004', N'Butt Brokers', 0);

INSERT INTO dbo.Parties (PartyId, CityId, Address, IsSeller, IsBuyer, IsBroker) VALUES
    (N'3010001', 3, N'Inside the mill gate', 0, 1, 0),
    (N'3010002', 3, N'Chak 12, Depalpur Road', 1, 0, 0),
    (N'6010001', 3, N'Shop 14, Grain Market', 1, 0, 0),
    (N'6010002', 2, N'Shop 7, Dijkot Road', 1, 0, 0),
    (N'6010003', 4, N'22 Fateh Sher Road', 1, 0, 0),
    (N'6010004', 1, N'5 Akbari Mandi', 1, 1, 0),
    (N'6010005', 3, N'Chak 39/3-R', 1, 0, 0),
    (N'6010006', 6, N'Grain Market, Block 4', 1, 0, 0),
    (N'6010007', 7, N'118 G.T. Road', 1, 0, 0),
    (N'6010008', 7, N'Village Kot Bhawani', 1, 0, 0),
    (N'6010009', 5, N'Bosan Road, Km 9', 1, 0, 0),
    (N'6010010', 2, N'Shop 31, Ghalla Mandi', 1, 1, 0),
    (N'6010011', 6, N'3 Railway Road', 1, 0, 1),
    (N'6010012', 1, N'77 Badami Bagh', 1, 1, 0),
    (N'6010013', 7, N'Kamoke Bypass', 1, 0, 0),
    (N'6010014', 4, N'Shop 2, New Grain Market', 1, 0, 0),
    (N'6010015', 5, N'15 Vehari Road', 1, 1, 0),
    (N'6010016', 3, N'Chak 51/GD', 1, 0, 0),
    (N'6010017', 2, N'Shop 9, Jaranwala Road', 1, 0, 0),
    (N'6010018', 1, N'Mouza Thatta Dhillon', 1, 0, 0),
    (N'6010019', 4, N'8 Katchery Road', 1, 0, 0),
    (N'6010020', 8, N'Grain Market, Gate 2', 1, 0, 0),
    (N'6010021', 8, N'Shahi Road', 1, 0, 0),
    (N'6010022', 3, N'Depalpur Chowk', 1, 0, 0),
    (N'6010023', 1, NULL, 1, 0, 0),
    (N'6010024', 9, N'غلہ منڈی، دکان نمبر ۳', 1, 0, 0),
    (N'6010025', 9, N'ریلوے روڈ', 1, 0, 0),
    (N'6010026', 5, N'Shujabad Canal Bank', 1, 0, 0),
    (N'6010027', 8, N'Sadiqabad Road', 1, 0, 0),
    (N'6010028', NULL, NULL, 1, 0, 0),
    (N'6040001', 1, N'42 Multan Road', 0, 1, 0),
    (N'6040002', 2, N'D-Ground', 0, 1, 0),
    (N'6040003', 1, N'Main Boulevard', 0, 1, 0),
    (N'6040004', 3, N'Industrial Area, Plot 6', 0, 1, 0),
    (N'6040005', 4, N'Pakpattan Road', 0, 1, 0),
    (N'6040006', 3, N'Bazaar Sahiwal Gate', 0, 1, 0),
    (N'6040007', 2, N'Clock Tower', 0, 1, 0),
    (N'6040008', 5, N'Cantonment', 0, 1, 0),
    (N'6060001', 3, N'Grain Market, first floor', 0, 0, 1),
    (N'6060002', 2, N'Ghalla Mandi', 0, 0, 1),
    (N'6060003', 6, N'Block 4', 0, 0, 1),
    (N'6060004', NULL, NULL, 0, 0, 1);

INSERT INTO dbo.Commodities (CommodityId, CommodityName, IsPurchaseable, IsSaleable,
        IsWheatCommodity) VALUES
    (1, N'Wheat', 1, 0, 1),
    (2, N'Wheat Seed', 1, 1, 1),
    (3, N'Wheat Government Stock', 1, 0, 1),
    (4, N'گندم دیسی', 1, 0, 1),
    (5, N'Maize', 1, 1, 0),
    (6, N'Diesel', 1, 0, 0),
    (7, N'Flour 20 Kg', 0, 1, 0),
    (8, N'Wheat Bran', 0, 1, 1),
    (9, N'Wheat Sweepings', 0, 0, 1),
    (10, N'Empty Bags', 0, 0, 0);

INSERT INTO dbo.BagsClasses (BagsClassId, BagsClass) VALUES
    (1, N'Jute New'), (2, N'Jute Old'), (3, N'Polypropylene'), (4, N'Loose');

INSERT INTO dbo.BagsTypes (BagsTypeId, BagsType) VALUES
    (1, N'100 Kg'), (2, N'50 Kg'), (3, N'40 Kg'), (4, N'Government'), (5, N'Mill Bardana');

INSERT INTO dbo.PRCenters (CenterId, CenterName) VALUES
    (1, N'Okara Centre'), (2, N'Renala Centre');

INSERT INTO dbo.PContracts (ContractId, ContractDate, PartyId) VALUES
    (501, DATEADD(day, -40, @today), N'6010001'),
    (502, DATEADD(day, -35, @today), N'6010009'),
    (503, DATEADD(day, -25, @today), N'6010022');

-- Past weighments. Weight is the first reading less the tare. The lines below have the shares that
-- saving computes.
DECLARE @loads TABLE (ArrivalId int, DaysAgo int, CommodityId int, SellerId nvarchar(20),
    Weight float, Tare float, Deduction float, Vehicle nvarchar(20), Driver nvarchar(60),
    Bilty nvarchar(20));
INSERT INTO @loads VALUES
    (1031, 300, 1, N'6010001', 8220, 4320, 17, N'LEA-4521', N'Ghulam Abbas', N'8811'),
    (1032, 210, 1, N'6010002', 4000, 2950, 60, N'FDS-982', N'Riaz Hussain', N'8840'),
    (1033, 95, 2, N'6010009', 12460, 7210, 0, N'MNC-1207', N'محمد بوٹا', N'102'),
    (1034, 60, 1, N'6010024', 15980, 7840, 45, N'KWL-3310', N'اللہ دتہ', N'117'),
    (1035, 30, 1, N'6010005', 6155, 3080, 12, N'OKR-774', N'Shabbir Ahmad', N'9'),
    (1036, 21, 3, N'6010022', 20140, 9875, 0, N'TLZ-6002', N'Nazir Masih', N'G-4471'),
    (1037, 14, 1, N'6010013', 9905, 5120, 33, N'GAJ-2218', N'Asif Ali', N'3310'),
    (1038, 9, 4, N'6010025', 3640, 1985, 8, N'KHW-51', N'Bashir', N''),
    (1039, 5, 1, N'6010026', 11210, 6090, 25, N'MNS-8846', N'Zoltán Ferenc', N'M-18'),
    (1040, 2, 1, N'6010004', 7330, 3995, 14, N'LES-1090', N'Tanveer', N'601'),
    (1041, 1, 1, N'6010016', 5265, 3010, 10, N'OKR-1190', N'Ilyas', N'77'),
    (1042, 0, 2, N'6010014', 10120, 5400, 20, N'SWL-455', N'Imran Yousaf', N'412');

DECLARE @lines TABLE (ArrivalId int, LineNumber int, BagsClassId int, BagsTypeId int, Bags float);
INSERT INTO @lines VALUES
    (1031, 1, 1, 1, 60), (1031, 2, 2, 1, 40),
    (1032, 1, 2, 1, 30), (1032, 2, 3, 2, 10),
    (1033, 1, 3, 2, 250),
    (1034, 1, 1, 1, 100), (1034, 2, 1, 2, 80), (1034, 3, 2, 3, 50),
    (1035, 1, 1, 1, 61),
    (1036, 1, 3, 4, 200),
    (1037, 1, 2, 1, 55), (1037, 2, 3, 2, 90),
    (1038, 1, 2, 3, 91),
    (1039, 1, 1, 1, 112),
    (1040, 1, 1, 1, 45), (1040, 2, 3, 3, 71),
    (1041, 1, 1, 5, 53),
    (1042, 1, 3, 2, 120), (1042, 2, 1, 1, 41);

INSERT INTO dbo.Arrivals (ArrivalID, ArrivalDate, CommodityId, SellerId, IsPosted)
    SELECT ArrivalId, DATEADD(day, -DaysAgo, @today), CommodityId, SellerId, 0
    FROM @loads;

INSERT INTO dbo.ArrivalsBody (ArrivalId, CommodityId, BagsClassId, BagsTypeId, NoOfBags, VehicleNo,
        TareWeight, ScaleDeduction, BagWeight, BagsDeduction, OtherDeduction, NetWeight, DriverName,
        BiltyNo, VehicleNoText)
    SELECT L.ArrivalId, S.CommodityId, L.BagsClassId, L.BagsTypeId, L.Bags,
           CASE WHEN L.LineNumber = 1 THEN S.Vehicle ELSE N'' END,
           CASE WHEN L.LineNumber = 1 THEN S.Tare ELSE 0 END, 0,
           S.Weight / T.Bags, 0, S.Deduction / T.Bags * L.Bags,
           (S.Weight - S.Deduction) / T.Bags * L.Bags, S.Driver, S.Bilty, S.Vehicle
    FROM @lines L
    INNER JOIN @loads S ON S.ArrivalId = L.ArrivalId
    INNER JOIN (SELECT ArrivalId, SUM(Bags) AS Bags FROM @lines GROUP BY ArrivalId) T
        ON T.ArrivalId = L.ArrivalId
    ORDER BY L.ArrivalId, L.LineNumber;

-- Posted by the books: the header holds both weights, so only a user of level 1 may change it.
UPDATE dbo.Arrivals
    SET IsPosted = 1, NoOfBags = 200, BagWeight = 100.7, TareWeight = 9875, ContractId = 503,
        CenterId = 1, PermitNo = N'P-2207'
    WHERE ArrivalID = 1036;

-- A purchase refers to one arrival, a laboratory report to another.
INSERT INTO dbo.PurchaseBody (PurchaseId, ArrivalId, Quantity, Rate) VALUES (77, 1035, 6143, 97.5);
INSERT INTO dbo.LaboratoryReports (SampleArrivalNo, Moisture, Gluten, Remarks) VALUES
    (1037, 11.4, 27.5, N'Sound, dry');
INSERT INTO dbo.Sales (Salesid, SaleDate, BuyerId) VALUES
    (9001, DATEADD(day, -3, @today), N'6040001');
INSERT INTO dbo.SaleRecoveryBody (SaleId, Amount) VALUES (9001, 125000);

COMMIT TRANSACTION;
END;
GO

SET XACT_ABORT OFF;
GO
