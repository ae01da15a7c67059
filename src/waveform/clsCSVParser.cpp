// SPDX-License-Identifier: GPL-3.0-or-later
#include "clsCSVParser.h"

#include "platform/LoadProgress.h"

#include <QFile>
#include <QFileInfo>

namespace lorvane {

QString clsCSVParser::Get_Token_Value(const QString& token, int startRow, int mode) const
{
    int row = 0;
    int col = 0;
    if (!Find_Token(token, row, col, mode, startRow))
        return {};
    return m_lines.at(row).Token(col + 1);
}

int clsCSVParser::Get_Next_Empty_Line(int startRow) const
{
    for (int row = qMax(0, startRow); row < Line_Count(); ++row) {
        const clsCSVLine& line = m_lines.at(row);
        bool blank = true;
        for (int t = 0; t < line.Token_Count() && blank; ++t)
            blank = line.Token(t).trimmed().isEmpty();
        if (blank)
            return row;
    }
    return Line_Count();
}

bool clsCSVParser::Find_Token(const QString& token, int& row, int& col, int mode, int startRow,
                              int endRow) const
{
    if (m_lines.isEmpty() || startRow < 0 || startRow >= Line_Count())
        return false;
    const int last = endRow <= 0 ? Line_Count() - 1 : qMin(endRow, Line_Count() - 1);
    for (int r = startRow; r <= last; ++r) {
        const QStringList& cells = m_lines.at(r).tokens();
        for (int t = 0; t < cells.size(); ++t) {
            const QString& cell = cells.at(t);
            const bool hit = mode == 0 ? cell == token : cell.contains(token, Qt::CaseInsensitive);
            if (hit) {
                row = r;
                col = t;
                return true;
            }
        }
    }
    return false;
}

int clsCSVParser::getColumn(int col, int row, int count, QStringList& out, bool keepBlanks) const
{
    out.clear();
    if (count < 1 || row < 0 || row >= Line_Count())
        return 0;
    // The count may come from another file: only the lines present get a cell.
    out.resize(qMin(count, Line_Count() - row));
    int read = 0;
    for (int i = 0; i < count && row + i < Line_Count(); ++i) {
        const clsCSVLine& line = m_lines.at(row + i);
        if (line.Token_Count() > col) {
            out[i] = line.Token(col);
            ++read;
        } else if (!keepBlanks) {
            break;
        }
    }
    return read;
}

const clsCSVLine* clsCSVParser::Get_Line(int row) const
{
    if (row < 0 || row >= Line_Count())
        return nullptr;
    return &m_lines.at(row);
}

int clsCSVParser::import_File(const QString& path, LoadProgress* progress)
{
    m_lines.clear();
    const QFileInfo info(path);
    if (!info.isFile() || info.size() == 0)
        return emptyOrMissing;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return openFailed;
    const QByteArray text = file.readAll();
    // About a hundred reports a file, whatever its length.
    const qsizetype every = qMax<qsizetype>(1, text.size() / 100);
    qsizetype reported = 0;
    if (progress)
        progress->advance(0, text.size());
    qsizetype start = 0;
    while (start <= text.size() && m_lines.size() < maxLines) {
        qsizetype end = text.indexOf("\r\n", start);
        if (end < 0)
            end = text.size();
        clsCSVLine line;
        line.Parse_Line(text.mid(start, end - start));
        m_lines << line;
        start = end + 2;
        if (progress && start - reported >= every) {
            reported = start;
            progress->advance(qMin(start, text.size()), text.size());
        }
    }
    if (progress)
        progress->advance(text.size(), text.size());
    return Line_Count() - 1;
}

} // namespace lorvane
