// SPDX-License-Identifier: GPL-3.0-or-later
#include "clsCSVLine.h"

namespace lorvane {

namespace {

QString trimBlanks(const QByteArray& bytes)
{
    qsizetype first = 0;
    qsizetype last = bytes.size();
    while (first < last && (bytes.at(first) == ' ' || bytes.at(first) == '\t'))
        ++first;
    while (last > first && (bytes.at(last - 1) == ' ' || bytes.at(last - 1) == '\t'))
        --last;
    return QString::fromLocal8Bit(bytes.mid(first, last - first));
}

} // namespace

QString clsCSVLine::Token(int index) const
{
    if (index < 0 || index >= m_tokens.size())
        return {};
    return m_tokens.at(index);
}

int clsCSVLine::Parse_Line(const QString& text)
{
    return Parse_Line(text.toLocal8Bit());
}

int clsCSVLine::Parse_Line(const QByteArray& bytes)
{
    m_tokens.clear();
    qsizetype start = 0;
    while (start < bytes.size())
        Parse_Token_ba(bytes, start, bytes.size());
    return Token_Count();
}

QString clsCSVLine::Parse_Token(const QString& text)
{
    const QByteArray bytes = text.toLocal8Bit();
    qsizetype start = 0;
    QString token;
    bool found = false;
    scan(bytes, start, bytes.size(), token, found);
    return token;
}

int clsCSVLine::Parse_Token_ba(const QByteArray& bytes, qsizetype& start, qsizetype end)
{
    QString token;
    bool found = false;
    const int state = scan(bytes, start, end, token, found);
    if (found)
        m_tokens << token;
    return state;
}

int clsCSVLine::scan(const QByteArray& bytes, qsizetype& start, qsizetype end, QString& token,
                     bool& found)
{
    int state = 0;
    qsizetype pos = start;
    while (pos < end && state >= 0) {
        const char b = bytes.at(pos++);
        switch (state) {
        case 0:
            if (b == '\r' || b == '\n')
                state = EndedByLineEnd;
            else if (b == ',')
                state = EndedByComma;
            else if (b == '"')
                state = 2;
            else if (b != ' ' && b != '\t')
                state = 1;
            break;
        case 1:
            if (b == '\r' || b == '\n')
                state = EndedByLineEnd;
            else if (b == ',')
                state = EndedByComma;
            else if (b == '"')
                state = 2;
            break;
        default: // inside quotes: only a closing quote leaves
            if (b == '"')
                state = 1;
            break;
        }
    }
    // Running off the end counts as one virtual terminator, so the last field of a line is a
    // token even when it is a single character, and a lone separator gives an empty token
    // only when it is a comma.
    const bool terminated = state < 0;
    if (!terminated)
        state = EndOfData;
    const qsizetype consumed = pos - start + (terminated ? 0 : 1);
    found = consumed > 1 || (consumed == 1 && state >= EndedByComma);
    token = found ? trimBlanks(bytes.mid(start, consumed - 1)) : QString();
    start = pos;
    return state;
}

} // namespace lorvane
