-- SPDX-License-Identifier: GPL-3.0-or-later
-- The meter protocol's maps onto the name index, for the points of the name index above.

-- Index is the DataID; Pointer numbers the points in protocol order, VIndex is the element
-- of a multi-valued pointer (0 for single values).
CREATE TABLE [DeviceProtocol_3_1] (
    [Index] INTEGER PRIMARY KEY,
    [Pointer] INTEGER,
    [VIndex] INTEGER
);
INSERT INTO [DeviceProtocol_3_1] ([Index], [Pointer], [VIndex])
    SELECT DataID, ROW_NUMBER() OVER (ORDER BY DataID), 0 FROM (
        SELECT 103 * 200 + [ID] AS DataID FROM [Type_103]
        UNION ALL SELECT 104 * 200 + [ID] FROM [Type_104]
        UNION ALL SELECT 105 * 200 + [ID] FROM [Type_105]
        UNION ALL SELECT 106 * 200 + [ID] FROM [Type_106]
        UNION ALL SELECT 107 * 200 + [ID] FROM [Type_107]
        UNION ALL SELECT 108 * 200 + [ID] FROM [Type_108]
        UNION ALL SELECT 110 * 200 + [ID] FROM [Type_110]
        UNION ALL SELECT 130 * 200 + [ID] FROM [Type_130]
        UNION ALL SELECT 131 * 200 + [ID] FROM [Type_131]
        UNION ALL SELECT 137 * 200 + [ID] FROM [Type_137]);

-- How a value is shown. DataType 0: plain number; 1: power factor band code (0 to below 20);
-- 2: energy register, formatted by the meter's scaled formats. LookUpRule 0: value as logged.
CREATE TABLE [DeviceDataLookUp_3_1] (
    [LookUpIndex] INTEGER PRIMARY KEY,
    [DataIndex] INTEGER,
    [DataType] INTEGER,
    [LookUpRule] INTEGER
);
INSERT INTO [DeviceDataLookUp_3_1] ([LookUpIndex], [DataIndex], [DataType], [LookUpRule])
    SELECT [Pointer], [Index],
           CASE WHEN [Index] / 200 = 107 THEN 1
                WHEN [Index] / 200 IN (104, 130) THEN 2
                ELSE 0 END,
           0
    FROM [DeviceProtocol_3_1];

-- Energy registers and the FormatID of the meter's ScaledFormats rows that format them
-- (FormatID 4 is the energy row: digits, unit prefix and decimals of the register).
-- ScaleIndex is the scale class: 1 shows the unit with "k", 2 and 3 with "M".
CREATE TABLE [DeviceScaledFormats_3_1] (
    [ScaleIndex] INTEGER,
    [DataIndex] INTEGER,
    [FormatID] INTEGER
);
INSERT INTO [DeviceScaledFormats_3_1] ([ScaleIndex], [DataIndex], [FormatID]) VALUES
    (1, 20825, 4),
    (1, 20826, 4),
    (1, 26003, 4),
    (1, 26004, 4),
    (1, 26005, 4),
    (1, 26006, 4);
