-- SPDX-License-Identifier: GPL-3.0-or-later
-- Texts of the log data store (2xxxxx) and the query engine (3xxxxx).
BEGIN;
INSERT INTO MAIN (IndexValue, TextValue, TranslatedValue) VALUES
    -- Messages about a meter file
    (200001, 'This database is damaged.', 'Diese Datenbank ist beschädigt.'),
    (200002, 'Table:', 'Tabelle:'),
    (200003, 'Database:', 'Datenbank:'),
    (200004, 'file attribute is read-only.', 'Dateiattribut ist schreibgeschützt.'),
    (200005, 'has a length of zero or does not exist at the specified location',
        'hat die Länge null oder existiert nicht am angegebenen Ort'),
    -- Log display names by log kind
    (200101, 'Device ID Name', 'Gerätekennung'),
    (200102, 'File Path', 'Dateipfad'),
    (200103, 'SnapShot Log', 'Momentanwertprotokoll'),
    (200104, 'Demands', 'Leistungsmittelwerte'),
    (200105, 'Limits Log', 'Grenzwertprotokoll'),
    (200106, 'Input Log', 'Eingangsprotokoll'),
    (200107, 'Relay Log', 'Relaisprotokoll'),
    (200108, 'Flicker Log', 'Flickerprotokoll'),
    (200109, 'Waveform Log', 'Kurvenformprotokoll'),
    (200110, 'Power Quality Log', 'Netzqualitätsprotokoll'),
    (200111, 'System Event Log', 'Systemereignisprotokoll'),
    -- Snapshot type names by TypeID
    (200200, 'All Snapshots', 'Alle Momentanwerte'),
    (200201, 'Group By Type', 'Nach Typ gruppiert'),
    (200202, 'Log 1', 'Protokoll 1'),
    (200203, 'Log 2', 'Protokoll 2'),
    (200204, 'Limits', 'Grenzwerte'),
    (200205, 'Input', 'Eingang'),
    (200206, 'Relay', 'Relais'),
    (200207, 'Flicker (Short)', 'Flicker (kurz)'),
    (200208, 'Waveform', 'Kurvenform'),
    (200209, 'Power Quality', 'Netzqualität'),
    (200210, 'Flicker (Long)', 'Flicker (lang)'),
    (200211, 'System Event', 'Systemereignis'),
    (200212, 'Test Mode (Log 1)', 'Testmodus (Protokoll 1)'),
    (200213, 'Test Mode (Log 2)', 'Testmodus (Protokoll 2)'),
    (200214, 'Log 1 Padding', 'Protokoll 1 Auffüllung'),
    (200215, 'Log 2 Padding', 'Protokoll 2 Auffüllung'),
    (200216, 'Log 3', 'Protokoll 3'),
    (200217, 'Log 3 Padding', 'Protokoll 3 Auffüllung'),
    (200218, 'Log 3', 'Protokoll 3'),
    (200219, 'Log 4', 'Protokoll 4'),
    (200220, 'Log 5', 'Protokoll 5'),
    (200221, 'Log 6', 'Protokoll 6'),
    (200222, 'Log 7', 'Protokoll 7'),
    (200223, 'Log 8', 'Protokoll 8'),
    (200224, 'Event Triggered', 'Ereignisgesteuert'),
    (200225, 'Transients', 'Transienten'),
    -- Log tree
    (300001, 'From ', 'Von '),
    (300002, ' to ', ' bis ');
COMMIT;
