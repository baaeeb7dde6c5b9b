-- Two triggers that enforce in the database, row by row, what the station's screens refuse:
-- - only a user of level 1 changes a posted load. A load is posted when its header has weights from
--   the books.
-- - only a user of level 1 removes a load.
-- - no station sets IsPosted.
-- They act on members of the role StationOperator only. Run this after roles.sql. It may be run twice.
--
-- The set-up runs it if it has created both tables. On tables of the site their owner decides: if a
-- table has a trigger, SQL Server refuses statements of any program that change the table with OUTPUT
-- and without INTO.

IF OBJECT_ID(N'dbo.StationGuardOfArrivals') IS NULL
    EXEC (N'CREATE TRIGGER dbo.StationGuardOfArrivals ON dbo.Arrivals AFTER INSERT, UPDATE, DELETE AS
BEGIN
    SET NOCOUNT ON;
    IF ISNULL(IS_MEMBER(N''StationOperator''), 0) = 0
        RETURN;
    IF EXISTS (SELECT 1 FROM inserted WHERE IsPosted <> 0)
    BEGIN
        RAISERROR(N''A station does not post arrivals.'', 16, 1);
        ROLLBACK TRANSACTION;
        RETURN;
    END;
    IF EXISTS (SELECT 1 FROM Station.SignedInUser WHERE userlevel = 1)
        RETURN;
    IF EXISTS (SELECT 1 FROM deleted D WHERE NOT EXISTS
                   (SELECT 1 FROM inserted I WHERE I.ArrivalID = D.ArrivalID))
        OR EXISTS (SELECT 1 FROM deleted WHERE NoOfBags * BagWeight <> 0 AND TareWeight <> 0)
    BEGIN
        RAISERROR(N''Only a user of level 1 may change a posted arrival or remove one.'', 16, 1);
        ROLLBACK TRANSACTION;
    END;
END');
GO

IF OBJECT_ID(N'dbo.StationGuardOfArrivalsBody') IS NULL
    EXEC (N'CREATE TRIGGER dbo.StationGuardOfArrivalsBody ON dbo.ArrivalsBody
    AFTER INSERT, UPDATE, DELETE AS
BEGIN
    SET NOCOUNT ON;
    IF ISNULL(IS_MEMBER(N''StationOperator''), 0) = 0
        OR EXISTS (SELECT 1 FROM Station.SignedInUser WHERE userlevel = 1)
        RETURN;
    IF EXISTS (SELECT 1 FROM Station.Arrivals A
                   INNER JOIN (SELECT ArrivalId FROM inserted
                               UNION SELECT ArrivalId FROM deleted) L ON L.ArrivalId = A.arrivalid
                   WHERE A.noofbags * A.bagweight <> 0 AND A.tareweight <> 0)
    BEGIN
        RAISERROR(N''Only a user of level 1 may change the lines of a posted arrival.'', 16, 1);
        ROLLBACK TRANSACTION;
    END;
END');
GO
