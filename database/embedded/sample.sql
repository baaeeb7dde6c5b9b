-- Sample rows. All names are invented. Dates are counted back from the day of set-up, so that the
-- search shows the arrivals at first.

INSERT INTO Cities (CityId, CityName) VALUES
    (1, 'Lahore'), (2, 'Faisalabad'), (3, 'Okara'), (4, 'Sahiwal'), (5, 'Multan'),
    (6, 'Sargodha'), (7, 'Gujranwala'), (8, 'Rahim Yar Khan'), (9, 'خانیوال');

-- Accounts from 6 on are the parties of the gate; 64 are buyers, 66 brokers. The others are the
-- mill's own ledgers, two of which trade with it.
INSERT INTO ChartOfAccounts (AccountNo, AccountName, IsEditable) VALUES
    ('1010001', 'Cash in Hand', 0),
    ('1010002', 'Bank Current Account', 0),
    ('2010001', 'Mill Machinery', 0),
    ('3010001', 'Staff Canteen', 1),
    ('3010002', 'Mill Farm Dera Noorpur', 1),
    ('5010001', 'Freight Inward', 0),
    ('6010001', 'Chaudhry Grain Traders', 1),
    ('6010002', 'Al-Barkat Commission Shop', 1),
    ('6010003', 'Malik Wheat Store', 1),
    ('6010004', 'Noor Brothers', 1),
    ('6010005', 'Sandhu Agri Farm', 1),
    ('6010006', 'Bismillah Ghalla Mandi', 1),
    ('6010007', 'Rana & Sons', 1),
    ('6010008', 'Warraich Zarai Farm', 1),
    ('6010009', 'Green Field Growers', 1),
    ('6010010', 'Sheikh Nadeem Traders', 1),
    ('6010011', 'Gondal Commission Agents', 1),
    ('6010012', 'Haji Rafiq & Company', 1),
    ('6010013', 'Cheema Agro Services', 1),
    ('6010014', 'Sitara Grain House', 1),
    ('6010015', 'Punjab Kissan Corner', 1),
    ('6010016', 'Kharal Farms', 1),
    ('6010017', 'Mian Tariq Ghalla Store', 1),
    ('6010018', 'Ravi Bank Growers', 1),
    ('6010019', 'Noor Brothers', 1),
    ('6010020', 'Dogar Wheat Suppliers', 1),
    ('6010021', 'Bhatti Zamindara Shop', 1),
    ('6010022', 'Province Food Godown No. 4', 0),
    ('6010023', 'Closed Account Yousaf Traders', 0),
    ('6010024', 'محمد اسلم اینڈ سنز', 1),
    ('6010025', 'چوہدری غلہ منڈی', 1),
    ('6010026', 'Zoë & Rémy Organic Farms', 1),
    ('6010027', 'Señor Khan Seed Company', 1),
    ('6010028', 'Tariq Mehmood Arhti', 1),
    ('6040001', 'Madina Bakers', 1),
    ('6040002', 'Shahi Naan Centre', 1),
    ('6040003', 'Gulberg Sweets', 1),
    ('6040004', 'City Feed Mill', 1),
    ('6040005', 'Cattle Choice Wanda', 1),
    ('6040006', 'Kareem General Store', 1),
    ('6040007', 'Café Lyallpur', 1),
    ('6040008', 'Army Supply Depot', 0),
    ('6060001', 'Akram Broker', 1),
    ('6060002', 'Saleem Dalal', 1),
    ('6060003', 'Ijaz & Waqas Brokerage', 1),
    ('6060004', 'Butt Brokers', 0);

INSERT INTO Parties (PartyId, CityId, Address, IsSeller, IsBuyer, IsBroker) VALUES
    ('3010001', 3, 'Inside the mill gate', 0, 1, 0),
    ('3010002', 3, 'Chak 12, Depalpur Road', 1, 0, 0),
    ('6010001', 3, 'Shop 14, Grain Market', 1, 0, 0),
    ('6010002', 2, 'Shop 7, Dijkot Road', 1, 0, 0),
    ('6010003', 4, '22 Fateh Sher Road', 1, 0, 0),
    ('6010004', 1, '5 Akbari Mandi', 1, 1, 0),
    ('6010005', 3, 'Chak 39/3-R', 1, 0, 0),
    ('6010006', 6, 'Grain Market, Block 4', 1, 0, 0),
    ('6010007', 7, '118 G.T. Road', 1, 0, 0),
    ('6010008', 7, 'Village Kot Bhawani', 1, 0, 0),
    ('6010009', 5, 'Bosan Road, Km 9', 1, 0, 0),
    ('6010010', 2, 'Shop 31, Ghalla Mandi', 1, 1, 0),
    ('6010011', 6, '3 Railway Road', 1, 0, 1),
    ('6010012', 1, '77 Badami Bagh', 1, 1, 0),
    ('6010013', 7, 'Kamoke Bypass', 1, 0, 0),
    ('6010014', 4, 'Shop 2, New Grain Market', 1, 0, 0),
    ('6010015', 5, '15 Vehari Road', 1, 1, 0),
    ('6010016', 3, 'Chak 51/GD', 1, 0, 0),
    ('6010017', 2, 'Shop 9, Jaranwala Road', 1, 0, 0),
    ('6010018', 1, 'Mouza Thatta Dhillon', 1, 0, 0),
    ('6010019', 4, '8 Katchery Road', 1, 0, 0),
    ('6010020', 8, 'Grain Market, Gate 2', 1, 0, 0),
    ('6010021', 8, 'Shahi Road', 1, 0, 0),
    ('6010022', 3, 'Depalpur Chowk', 1, 0, 0),
    ('6010023', 1, NULL, 1, 0, 0),
    ('6010024', 9, 'غلہ منڈی، دکان نمبر ۳', 1, 0, 0),
    ('6010025', 9, 'ریلوے روڈ', 1, 0, 0),
    ('6010026', 5, 'Shujabad Canal Bank', 1, 0, 0),
    ('6010027', 8, 'Sadiqabad Road', 1, 0, 0),
    ('6010028', NULL, NULL, 1, 0, 0),
    ('6040001', 1, '42 Multan Road', 0, 1, 0),
    ('6040002', 2, 'D-Ground', 0, 1, 0),
    ('6040003', 1, 'Main Boulevard', 0, 1, 0),
    ('6040004', 3, 'Industrial Area, Plot 6', 0, 1, 0),
    ('6040005', 4, 'Pakpattan Road', 0, 1, 0),
    ('6040006', 3, 'Bazaar Sahiwal Gate', 0, 1, 0),
    ('6040007', 2, 'Clock Tower', 0, 1, 0),
    ('6040008', 5, 'Cantonment', 0, 1, 0),
    ('6060001', 3, 'Grain Market, first floor', 0, 0, 1),
    ('6060002', 2, 'Ghalla Mandi', 0, 0, 1),
    ('6060003', 6, 'Block 4', 0, 0, 1),
    ('6060004', NULL, NULL, 0, 0, 1);

INSERT INTO Commodities (CommodityId, CommodityName, IsPurchaseable, IsSaleable, IsWheatCommodity)
VALUES
    (1, 'Wheat', 1, 0, 1),
    (2, 'Wheat Seed', 1, 1, 1),
    (3, 'Wheat Government Stock', 1, 0, 1),
    (4, 'گندم دیسی', 1, 0, 1),
    (5, 'Maize', 1, 1, 0),
    (6, 'Diesel', 1, 0, 0),
    (7, 'Flour 20 Kg', 0, 1, 0),
    (8, 'Wheat Bran', 0, 1, 1),
    (9, 'Wheat Sweepings', 0, 0, 1),
    (10, 'Empty Bags', 0, 0, 0);

INSERT INTO BagsClasses (BagsClassId, BagsClass) VALUES
    (1, 'Jute New'), (2, 'Jute Old'), (3, 'Polypropylene'), (4, 'Loose');

INSERT INTO BagsTypes (BagsTypeId, BagsType) VALUES
    (1, '100 Kg'), (2, '50 Kg'), (3, '40 Kg'), (4, 'Government'), (5, 'Mill Bardana');

INSERT INTO PRCenters (CenterId, CenterName) VALUES
    (1, 'Okara Centre'), (2, 'Renala Centre');

INSERT INTO PContracts (ContractId, ContractDate, PartyId) VALUES
    (501, strftime('%Y-%m-%dT00:00:00', 'now', 'localtime', '-40 days'), '6010001'),
    (502, strftime('%Y-%m-%dT00:00:00', 'now', 'localtime', '-35 days'), '6010009'),
    (503, strftime('%Y-%m-%dT00:00:00', 'now', 'localtime', '-25 days'), '6010022');

-- Past weighments. Load is the first reading less the tare. The lines below have the shares that
-- saving computes.
CREATE TEMP TABLE SampleLoads (
    ArrivalId, DaysAgo, CommodityId, SellerId, Load REAL, Tare REAL, Deduction REAL, Vehicle,
    Driver, Bilty);
INSERT INTO SampleLoads VALUES
    (1031, 300, 1, '6010001', 8220, 4320, 17, 'LEA-4521', 'Ghulam Abbas', '8811'),
    (1032, 210, 1, '6010002', 4000, 2950, 60, 'FDS-982', 'Riaz Hussain', '8840'),
    (1033, 95, 2, '6010009', 12460, 7210, 0, 'MNC-1207', 'محمد بوٹا', '102'),
    (1034, 60, 1, '6010024', 15980, 7840, 45, 'KWL-3310', 'اللہ دتہ', '117'),
    (1035, 30, 1, '6010005', 6155, 3080, 12, 'OKR-774', 'Shabbir Ahmad', '9'),
    (1036, 21, 3, '6010022', 20140, 9875, 0, 'TLZ-6002', 'Nazir Masih', 'G-4471'),
    (1037, 14, 1, '6010013', 9905, 5120, 33, 'GAJ-2218', 'Asif Ali', '3310'),
    (1038, 9, 4, '6010025', 3640, 1985, 8, 'KHW-51', 'Bashir', ''),
    (1039, 5, 1, '6010026', 11210, 6090, 25, 'MNS-8846', 'Zoltán Ferenc', 'M-18'),
    (1040, 2, 1, '6010004', 7330, 3995, 14, 'LES-1090', 'Tanveer', '601'),
    (1041, 1, 1, '6010016', 5265, 3010, 10, 'OKR-1190', 'Ilyas', '77'),
    (1042, 0, 2, '6010014', 10120, 5400, 20, 'SWL-455', 'Imran Yousaf', '412');

CREATE TEMP TABLE SampleLines (ArrivalId, LineNumber, BagsClassId, BagsTypeId, Bags REAL);
INSERT INTO SampleLines VALUES
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

INSERT INTO Arrivals (ArrivalID, ArrivalDate, CommodityId, SellerId, IsPosted)
    SELECT ArrivalId,
           strftime('%Y-%m-%dT00:00:00', 'now', 'localtime', '-' || DaysAgo || ' days'),
           CommodityId, SellerId, 0
    FROM SampleLoads;

INSERT INTO ArrivalsBody (ArrivalId, CommodityId, BagsClassId, BagsTypeId, NoOfBags, VehicleNo,
        TareWeight, ScaleDeduction, BagWeight, BagsDeduction, OtherDeduction, NetWeight, DriverName,
        BiltyNo, VehicleNoText)
    SELECT L.ArrivalId, S.CommodityId, L.BagsClassId, L.BagsTypeId, L.Bags,
           iif(L.LineNumber = 1, S.Vehicle, ''), iif(L.LineNumber = 1, S.Tare, 0), 0,
           S.Load / T.Bags, 0, S.Deduction / T.Bags * L.Bags,
           (S.Load - S.Deduction) / T.Bags * L.Bags, S.Driver, S.Bilty, S.Vehicle
    FROM SampleLines L
    JOIN SampleLoads S ON S.ArrivalId = L.ArrivalId
    JOIN (SELECT ArrivalId, sum(Bags) AS Bags FROM SampleLines GROUP BY ArrivalId) T
        ON T.ArrivalId = L.ArrivalId
    ORDER BY L.ArrivalId, L.LineNumber;

DROP TABLE SampleLines;
DROP TABLE SampleLoads;

-- Posted by the books: the header holds both weights, so only a user of level 1 may change it.
UPDATE Arrivals
    SET IsPosted = 1, NoOfBags = 200, BagWeight = 100.7, TareWeight = 9875, ContractId = 503,
        CenterId = 1, PermitNo = 'P-2207'
    WHERE ArrivalID = 1036;

-- A purchase refers to one arrival, a laboratory report to another.
INSERT INTO PurchaseBody (PurchaseId, ArrivalId, Quantity, Rate) VALUES (77, 1035, 6143, 97.5);
INSERT INTO LaboratoryReports (SampleArrivalNo, Moisture, Gluten, Remarks) VALUES
    (1037, 11.4, 27.5, 'Sound, dry');
INSERT INTO Sales (Salesid, SaleDate, BuyerId) VALUES
    (9001, strftime('%Y-%m-%dT00:00:00', 'now', 'localtime', '-3 days'), '6040001');
INSERT INTO SaleRecoveryBody (SaleId, Amount) VALUES (9001, 125000);
