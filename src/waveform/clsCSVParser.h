// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "clsCSVLine.h"

#include <QString>
#include <QStringList>
#include <QVector>

namespace lorvane {

/// A comma-separated file held in memory as lines of tokens, with the look-ups the capture
/// file reader needs: find a label, take the value to its right, read a column downwards.
/// Line and token numbers are 0-based.
class LoadProgress;

class clsCSVParser
{
public:
    /// Most lines a file may give; the rest of a longer file is dropped without a message.
    static constexpr int maxLines = 0x20000;
    /// `import_File` results besides the last line index.
    static constexpr int openFailed = -1;
    static constexpr int emptyOrMissing = -2;

    /// Number of lines held.
    int Line_Count() const { return static_cast<int>(m_lines.size()); }

    /// Finds `token` from `startRow` on (see Find_Token) and returns the token to its right in
    /// that line; empty when either is missing.
    QString Get_Token_Value(const QString& token, int startRow = 0, int mode = 0) const;
    /// First line from `startRow` whose tokens are all blank after trimming; Line_Count when
    /// there is none.
    int Get_Next_Empty_Line(int startRow) const;
    /// Walks lines `startRow` to `endRow` (0: the last line) and their tokens from 0. Mode 0:
    /// a token equal to `token` (exact case); mode 1: a token containing it, ignoring case.
    /// On a hit sets `row` and `col` and returns true; false with no lines or a start outside
    /// the lines.
    bool Find_Token(const QString& token, int& row, int& col, int mode = 0, int startRow = 0,
                    int endRow = 0) const;
    /// True when `line` is absent (what Get_Line gives outside the range).
    static bool isLineNothing(const clsCSVLine* line) { return line == nullptr; }
    /// Reads `count` cells of column `col` from line `row` downwards into `out` (resized to
    /// `count`, or to the lines from `row` on when fewer), stopping quietly at the end of the file.
    /// A line too short for the column leaves an empty cell with `keepBlanks` and is not counted,
    /// else it ends the read. Returns the number of cells read; 0 for a count below 1 or a row
    /// outside the lines.
    int getColumn(int col, int row, int count, QStringList& out, bool keepBlanks) const;
    /// Line `row`, or nullptr outside the range.
    const clsCSVLine* Get_Line(int row) const;
    /// Reads the file at `path` whole and splits it on CR LF, at most maxLines lines. Returns
    /// the last line index read, emptyOrMissing for a missing or zero-length file, openFailed
    /// when it cannot be read. Lines held before are replaced. The share of the file's bytes
    /// split so far goes to `progress` when given.
    int import_File(const QString& path, LoadProgress* progress = nullptr);

private:
    QVector<clsCSVLine> m_lines;
};

} // namespace lorvane
