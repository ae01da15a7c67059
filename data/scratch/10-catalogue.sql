-- SPDX-License-Identifier: GPL-3.0-or-later
-- The file's identity, the query catalogue and the compliance listing tables. Every working
-- file of a running copy starts as a byte copy of the template built from these sources.

CREATE TABLE [ID_Table] (
    [Version] REAL,
    [Note] TEXT
);
INSERT INTO [ID_Table] ([Version], [Note]) VALUES (8.6, 'Scratch template V8.6');

-- One row per view that was loaded; QueryIndex is the number Q in the working table names.
CREATE TABLE [AllQueries] (
    [QueryIndex] INTEGER PRIMARY KEY AUTOINCREMENT,
    [StartDate/Time] TEXT,
    [EndDate/Time] TEXT,
    [QueryType] INTEGER
);

-- One row per compliance listing: the meter files it was made from.
CREATE TABLE [PQTestLogsMain] (
    [PQTestLogs_ID] INTEGER,
    [SourcePathA] TEXT,
    [SourcePathB] TEXT
);

-- One row per compliance test period found in the meter files of the listing.
CREATE TABLE [PQTestLogsDetail] (
    [PQTestLogsDetail_ID] INTEGER,
    [PQTestLogs_ID] INTEGER,
    [MeterName] TEXT,
    [StartTime] TEXT,
    [EndTime] TEXT,
    [SourceDB] TEXT,
    [SourceDB_idon] INTEGER,
    [Freq] REAL,
    [S_Freq] INTEGER,
    [S_LSV] INTEGER,
    [S_FVF] INTEGER,
    [S_Flicker] INTEGER,
    [S_SVU] INTEGER,
    [S_Harmonic] INTEGER,
    [S_THD] INTEGER,
    [NominalVoltage] INTEGER DEFAULT 0
);
