-- Keeps pace with the embedded database, whose bag lines are numbered from here on as the server has
-- always numbered them: no number is given out twice. It may be run twice.
--
-- A station that has signed in as the database's owner runs it by itself, in one transaction. By hand:
--     sqlcmd -b -d <database> -i to-2.sql, and then the same with ../roles.sql

UPDATE dbo.StationSchema SET SchemaVersion = 2 WHERE SchemaVersion < 2;
GO
