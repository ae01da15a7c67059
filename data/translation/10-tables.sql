-- SPDX-License-Identifier: GPL-3.0-or-later
-- A translation database: its identity row and one row per text. IndexValue is the text's
-- six-digit id; 999999 marks a name that has no id and is found by its English text.
CREATE TABLE DBID (
    pFontName TEXT,
    pFileVer TEXT,
    pFontCharSet INTEGER,
    pIsUnicode INTEGER,
    LastRun TEXT
);
CREATE TABLE MAIN (
    IndexValue INTEGER,
    TextValue TEXT,
    TranslatedValue TEXT
);
CREATE INDEX MAIN_IndexValue ON MAIN (IndexValue);
CREATE INDEX MAIN_TextValue ON MAIN (TextValue);

-- German needs no font of its own: windows keep theirs.
INSERT INTO DBID VALUES ('no_font', '1.0', 0, -1, NULL);
