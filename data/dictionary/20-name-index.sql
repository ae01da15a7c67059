-- SPDX-License-Identifier: GPL-3.0-or-later
-- The two-level name index of data point ids below 50000 (and 350000 to 450000): a DataID
-- splits into head = DataID / 200 and item = DataID % 200. Types names the head (ID and
-- ReferenceID are both the head), Type_{head} names the item, and a label reads
-- "{group} {item}", e.g. 20617 = 103 * 200 + 17 is "Voltage Van".
-- To add a group: one Types row and one Type_{head} table with a row per item.

CREATE TABLE [Types] (
    [ID] INTEGER PRIMARY KEY,
    [ReferenceID] INTEGER,
    [Name] TEXT
);
INSERT INTO [Types] ([ID], [ReferenceID], [Name]) VALUES
    (103, 103, 'Voltage'),
    (104, 104, 'Billing'),
    (105, 105, 'Current'),
    (106, 106, 'Power'),
    (107, 107, 'Power Factor'),
    (108, 108, 'Frequency'),
    (110, 110, 'THD'),
    (130, 130, 'Energy'),
    (131, 131, 'Demand'),
    (137, 137, 'Flicker'),
    (150, 150, 'EN 50160');

-- 103: voltages, 20600 + item
CREATE TABLE [Type_103] ([ID] INTEGER PRIMARY KEY, [Name] TEXT);
INSERT INTO [Type_103] ([ID], [Name]) VALUES
    (17, 'Van'),
    (21, 'Vbn'),
    (25, 'Vcn'),
    (29, 'Vab'),
    (33, 'Vbc'),
    (37, 'Vca'),
    (41, 'Vaux'),
    (45, 'Average L-N'),
    (49, 'Average L-L'),
    (53, 'Unbalance %');

-- 104: billing registers, 20800 + item
CREATE TABLE [Type_104] ([ID] INTEGER PRIMARY KEY, [Name] TEXT);
INSERT INTO [Type_104] ([ID], [Name]) VALUES
    (25, 'kWh Delivered'),
    (26, 'kvarh Delivered');

-- 105: currents, 21000 + item
CREATE TABLE [Type_105] ([ID] INTEGER PRIMARY KEY, [Name] TEXT);
INSERT INTO [Type_105] ([ID], [Name]) VALUES
    (17, 'Ia'),
    (21, 'Ib'),
    (25, 'Ic'),
    (29, 'In'),
    (33, 'Average');

-- 106: powers, 21200 + item
CREATE TABLE [Type_106] ([ID] INTEGER PRIMARY KEY, [Name] TEXT);
INSERT INTO [Type_106] ([ID], [Name]) VALUES
    (3, 'kW Total'),
    (4, 'kvar Total'),
    (5, 'kVA Total'),
    (6, 'kW a'),
    (7, 'kW b'),
    (8, 'kW c');

-- 107: power factors, 21400 + item
CREATE TABLE [Type_107] ([ID] INTEGER PRIMARY KEY, [Name] TEXT);
INSERT INTO [Type_107] ([ID], [Name]) VALUES
    (1, 'PF a'),
    (2, 'PF b'),
    (3, 'PF c'),
    (4, 'PF Total');

-- 108: frequency, 21600 + item
CREATE TABLE [Type_108] ([ID] INTEGER PRIMARY KEY, [Name] TEXT);
INSERT INTO [Type_108] ([ID], [Name]) VALUES
    (1, 'Frequency');

-- 110: total harmonic distortion, 22000 + item
CREATE TABLE [Type_110] ([ID] INTEGER PRIMARY KEY, [Name] TEXT);
INSERT INTO [Type_110] ([ID], [Name]) VALUES
    (1, 'Van THD %'),
    (2, 'Vbn THD %'),
    (3, 'Vcn THD %'),
    (4, 'Ia THD %'),
    (5, 'Ib THD %'),
    (6, 'Ic THD %');

-- 130: energy registers, 26000 + item
CREATE TABLE [Type_130] ([ID] INTEGER PRIMARY KEY, [Name] TEXT);
INSERT INTO [Type_130] ([ID], [Name]) VALUES
    (3, 'kWh Delivered'),
    (4, 'kWh Received'),
    (5, 'kvarh Delivered'),
    (6, 'kVAh');

-- 131: demands, 26200 + item
CREATE TABLE [Type_131] ([ID] INTEGER PRIMARY KEY, [Name] TEXT);
INSERT INTO [Type_131] ([ID], [Name]) VALUES
    (1, 'kW Demand'),
    (2, 'kvar Demand'),
    (3, 'kVA Demand'),
    (4, 'Ia Demand'),
    (5, 'Ib Demand'),
    (6, 'Ic Demand');

-- 137: flicker severity, 27400 + item
CREATE TABLE [Type_137] ([ID] INTEGER PRIMARY KEY, [Name] TEXT);
INSERT INTO [Type_137] ([ID], [Name]) VALUES
    (1, 'Pst Va'),
    (2, 'Pst Vb'),
    (3, 'Pst Vc'),
    (4, 'Plt Va'),
    (5, 'Plt Vb'),
    (6, 'Plt Vc');
