-- SPDX-License-Identifier: GPL-3.0-or-later
-- Identity of the dictionary and the device types it knows. A meter file's DeviceTypeID is
-- an ID of Devices.

CREATE TABLE [ID_TABLE] (
    [Version] REAL,
    [Note] TEXT
);
INSERT INTO [ID_TABLE] ([Version], [Note]) VALUES (6.9, 'Name list V6.9: device types, snapshot, energy, demand, flicker and EN 50160 statistics');

CREATE TABLE [Devices] (
    [ID] INTEGER PRIMARY KEY,
    [DeviceName] TEXT
);
INSERT INTO [Devices] ([ID], [DeviceName]) VALUES
    (0, 'Talmo'),
    (1, 'Talmo Lite'),
    (2, 'Relay Module'),
    (3, 'Halyx 3'),
    (4, 'Halyx 4 Recorder'),
    (5, 'Halyx 15'),
    (6, 'Halyx 6 Basic');
