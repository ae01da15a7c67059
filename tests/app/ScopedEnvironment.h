// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

namespace lorvane::test {

/// Sets or removes environment variables for the length of a test and restores them after.
class ScopedEnvironment
{
public:
    ScopedEnvironment() = default;
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;
    ~ScopedEnvironment()
    {
        for (auto it = m_saved.rbegin(); it != m_saved.rend(); ++it) {
            if (it->wasSet)
                qputenv(it->name.constData(), it->value);
            else
                qunsetenv(it->name.constData());
        }
    }

    void set(const char* name, const QString& value)
    {
        save(name);
        qputenv(name, value.toLocal8Bit());
    }
    void unset(const char* name)
    {
        save(name);
        qunsetenv(name);
    }

private:
    struct Saved
    {
        QByteArray name;
        bool wasSet;
        QByteArray value;
    };
    void save(const char* name)
    {
        m_saved.push_back({name, qEnvironmentVariableIsSet(name), qgetenv(name)});
    }

    std::vector<Saved> m_saved;
};

} // namespace lorvane::test
