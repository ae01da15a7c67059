// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace lorvane {

/// Every message box, question and warning sound of the program goes through this one
/// interface: the program shows Qt dialogs, the tests install a recorder and read the exact
/// words shown, so a test never blocks on a modal box.
class UserMessages
{
public:
    enum class Icon
    {
        Information,
        Warning,
        Critical,
    };

    virtual ~UserMessages() = default;

    /// A message box with one OK button; returns when the user closed it.
    virtual void show(const QString& text, Icon icon = Icon::Information,
                      const QString& title = QString()) = 0;
    /// A Yes/No question; true for Yes.
    virtual bool ask(const QString& question, const QString& title = QString()) = 0;
    /// One short warning sound.
    virtual void beep() = 0;
};

/// The run-wide message sink. Until one is installed, messages go to standard error and every
/// question is answered No.
UserMessages& userMessages();

/// Installs `messages` as the run-wide sink (the caller keeps ownership); nullptr restores the
/// standard error sink. Returns the sink that was installed before.
UserMessages* installUserMessages(UserMessages* messages);

/// A sink that keeps what it was shown, for the tests and for batch runs: every text in order,
/// questions answered by `answer`.
class RecordedMessages : public UserMessages
{
public:
    void show(const QString& text, Icon icon, const QString& title) override;
    bool ask(const QString& question, const QString& title) override;
    void beep() override { ++m_beeps; }

    /// The texts shown and asked, in order.
    const QStringList& texts() const { return m_texts; }
    /// The icons of the shown texts (questions are not in it).
    const QList<Icon>& icons() const { return m_icons; }
    int beeps() const { return m_beeps; }
    void clear();
    /// The answer given to every later question.
    void setAnswer(bool yes) { m_answer = yes; }

private:
    QStringList m_texts;
    QList<Icon> m_icons;
    int m_beeps = 0;
    bool m_answer = true;
};

/// Installs a sink for the life of a scope and puts the earlier one back.
class ScopedUserMessages
{
public:
    explicit ScopedUserMessages(UserMessages& messages) : m_previous(installUserMessages(&messages))
    {
    }
    ~ScopedUserMessages() { installUserMessages(m_previous); }
    ScopedUserMessages(const ScopedUserMessages&) = delete;
    ScopedUserMessages& operator=(const ScopedUserMessages&) = delete;

private:
    UserMessages* m_previous;
};

} // namespace lorvane
