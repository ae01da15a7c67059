-- SPDX-License-Identifier: GPL-3.0-or-later
-- T{type}: the data points a device type offers, one DataID per row, taken whole from the
-- groups of the name index. Device type 2 is a relay module and logs no measured points.

CREATE TABLE [T0] ([DataID] INTEGER PRIMARY KEY);
CREATE TABLE [T1] ([DataID] INTEGER PRIMARY KEY);
CREATE TABLE [T2] ([DataID] INTEGER PRIMARY KEY);
CREATE TABLE [T3] ([DataID] INTEGER PRIMARY KEY);
CREATE TABLE [T4] ([DataID] INTEGER PRIMARY KEY);
CREATE TABLE [T5] ([DataID] INTEGER PRIMARY KEY);
CREATE TABLE [T6] ([DataID] INTEGER PRIMARY KEY);

-- Measured values every metering type has.
INSERT INTO [T0] SELECT 103 * 200 + [ID] FROM [Type_103]
    UNION ALL SELECT 105 * 200 + [ID] FROM [Type_105]
    UNION ALL SELECT 106 * 200 + [ID] FROM [Type_106]
    UNION ALL SELECT 107 * 200 + [ID] FROM [Type_107]
    UNION ALL SELECT 108 * 200 + [ID] FROM [Type_108];
INSERT INTO [T1] SELECT [DataID] FROM [T0];
INSERT INTO [T3] SELECT [DataID] FROM [T0];
INSERT INTO [T4] SELECT [DataID] FROM [T0];
INSERT INTO [T5] SELECT [DataID] FROM [T0];
INSERT INTO [T6] SELECT [DataID] FROM [T0];

-- Harmonic distortion: the analysing types.
INSERT INTO [T0] SELECT 110 * 200 + [ID] FROM [Type_110];
INSERT INTO [T3] SELECT 110 * 200 + [ID] FROM [Type_110];
INSERT INTO [T4] SELECT 110 * 200 + [ID] FROM [Type_110];
INSERT INTO [T5] SELECT 110 * 200 + [ID] FROM [Type_110];

-- Energy registers.
INSERT INTO [T0] SELECT 130 * 200 + [ID] FROM [Type_130];
INSERT INTO [T3] SELECT 130 * 200 + [ID] FROM [Type_130];
INSERT INTO [T4] SELECT 130 * 200 + [ID] FROM [Type_130];
INSERT INTO [T5] SELECT 130 * 200 + [ID] FROM [Type_130];
INSERT INTO [T6] SELECT 130 * 200 + [ID] FROM [Type_130];

-- Demands.
INSERT INTO [T0] SELECT 131 * 200 + [ID] FROM [Type_131];
INSERT INTO [T3] SELECT 131 * 200 + [ID] FROM [Type_131];
INSERT INTO [T4] SELECT 131 * 200 + [ID] FROM [Type_131];
INSERT INTO [T5] SELECT 131 * 200 + [ID] FROM [Type_131];

-- Flicker.
INSERT INTO [T0] SELECT 137 * 200 + [ID] FROM [Type_137];
INSERT INTO [T4] SELECT 137 * 200 + [ID] FROM [Type_137];
INSERT INTO [T5] SELECT 137 * 200 + [ID] FROM [Type_137];

-- Billing registers: type 4 reports them through its Modbus map.
INSERT INTO [T0] SELECT 104 * 200 + [ID] FROM [Type_104];
INSERT INTO [T5] SELECT 104 * 200 + [ID] FROM [Type_104];
INSERT INTO [T4] SELECT [GlobalID] FROM [DeviceModbusMap];

-- EN 50160 compliance statistics: the split-log type.
INSERT INTO [T5] SELECT 150 * 200 + [ID] FROM [Type_150];
