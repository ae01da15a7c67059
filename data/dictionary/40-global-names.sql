-- SPDX-License-Identifier: GPL-3.0-or-later
-- Ids named whole rather than through the two-level index: 50000 to 199999 in Namelist,
-- 200000 to 300000 in DeviceModbusMap, 300001 to 349999 in BrinMF20.

CREATE TABLE [Namelist] (
    [GlobalID] INTEGER PRIMARY KEY,
    [Label] TEXT
);

-- Registers that device type 4 reports through its Modbus map.
CREATE TABLE [DeviceModbusMap] (
    [GlobalID] INTEGER PRIMARY KEY,
    [Description] TEXT
);
INSERT INTO [DeviceModbusMap] ([GlobalID], [Description]) VALUES
    (202006, 'kWh Delivered (Modbus)'),
    (202010, 'kvarh Delivered (Modbus)');

CREATE TABLE [BrinMF20] (
    [GlobalID] INTEGER PRIMARY KEY,
    [Description] TEXT
);
