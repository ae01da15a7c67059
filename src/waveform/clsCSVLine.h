// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace lorvane {

/// One line of a comma-separated file as trimmed tokens. Quotes are kept in the tokens, so a
/// quoted field holding a comma stays one token with its quotes; an empty field between two
/// commas is an empty token and a trailing comma adds none.
class clsCSVLine
{
public:
    /// End states of the token scanner.
    enum ScanEnd
    {
        EndedByComma = -1,
        EndedByLineEnd = -2,
        EndOfData = -4,
    };

    /// Number of tokens held.
    int Token_Count() const { return static_cast<int>(m_tokens.size()); }
    /// All tokens, for scans that look at every cell without copying one.
    const QStringList& tokens() const { return m_tokens; }
    /// Token `index` (0-based); an empty string for an index outside 0 to count - 1.
    QString Token(int index) const;
    /// Replaces the tokens with those of `text` (converted to the local 8-bit code page);
    /// returns their count.
    int Parse_Line(const QString& text);
    /// Parses bytes of a line already read from a file; returns the token count.
    int Parse_Line(const QByteArray& bytes);
    /// The first token of `text`, trimmed; the tokens held are not changed.
    static QString Parse_Token(const QString& text);
    /// Scans one token of `bytes` from `start` up to `end` (exclusive), appends it when the
    /// scan yields one and advances `start` past the bytes consumed. Returns the end state.
    int Parse_Token_ba(const QByteArray& bytes, qsizetype& start, qsizetype end);

private:
    /// The scanner: from `start`, how many bytes the token consumed, its text and whether a
    /// token was found at all.
    static int scan(const QByteArray& bytes, qsizetype& start, qsizetype end, QString& token,
                    bool& found);

    QStringList m_tokens;
};

} // namespace lorvane
