-- SPDX-License-Identifier: GPL-3.0-or-later
-- Ids named whole rather than through the two-level index: 50000 to 199999 in Namelist,
-- 200000 to 300000 in DeviceModbusMap, 300001 to 349999 in BrinMF20.

CREATE TABLE [Namelist] (
    [GlobalID] INTEGER PRIMARY KEY,
    [Label] TEXT
);
-- Individual harmonics in percent of the fundamental: 50000 + 100 x channel + order, channels
-- 0 Van, 1 Vbn, 2 Vcn, 4 Ia, 5 Ib, 6 Ic (the channel numbering of the meter files).
INSERT INTO [Namelist] ([GlobalID], [Label])
    WITH [Channels] ([Number], [Name]) AS (
        VALUES (0, 'Van'), (1, 'Vbn'), (2, 'Vcn'), (4, 'Ia'), (5, 'Ib'), (6, 'Ic')),
    [Orders] ([Number]) AS (
        SELECT 2 UNION ALL SELECT [Number] + 1 FROM [Orders] WHERE [Number] < 31)
    SELECT 50000 + 100 * [Channels].[Number] + [Orders].[Number],
           [Channels].[Name] || ' Harmonic ' || [Orders].[Number] || ' %'
    FROM [Channels], [Orders];

-- Registers that device type 4 reports through its Modbus map.
CREATE TABLE [DeviceModbusMap] (
    [GlobalID] INTEGER PRIMARY KEY,
    [Description] TEXT
);
INSERT INTO [DeviceModbusMap] ([GlobalID], [Description]) VALUES
    (202006, 'kWh Delivered (Modbus)'),
    (202010, 'kvarh Delivered (Modbus)');

-- Points of the plug-in multifunction module: its pulse counters and analog inputs.
CREATE TABLE [BrinMF20] (
    [GlobalID] INTEGER PRIMARY KEY,
    [Description] TEXT
);
INSERT INTO [BrinMF20] ([GlobalID], [Description]) VALUES
    (300001, 'Pulse Counter 1'),
    (300002, 'Pulse Counter 2'),
    (300003, 'Pulse Counter 3'),
    (300004, 'Pulse Counter 4'),
    (300101, 'Analog Input 1 mA'),
    (300102, 'Analog Input 2 mA');
