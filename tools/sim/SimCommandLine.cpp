// SPDX-License-Identifier: GPL-3.0-or-later
#include "SimCommandLine.h"

#include <cmath>

namespace lorvane::sim {

SimCommandLine::SimCommandLine(const QStringList& arguments)
{
    parse(arguments);
}

const QList<double>& SimCommandLine::schemaVersions()
{
    static const QList<double> versions{7.5, 7.55, 7.6, 7.7, 7.8, 7.9, 8.0, 8.1, 8.2,
                                        8.3, 8.4,  8.5, 8.6, 8.8, 8.9, 9.0, 9.1};
    return versions;
}

QString SimCommandLine::usage()
{
    return QStringLiteral(
        "Usage: lorvane-sim --out PATH [options]\n"
        "       lorvane-sim demo --out DIR [--overwrite] [--verbose]\n"
        "\n"
        "Writes simulated meter log databases, the same for the same seed.\n"
        "\n"
        "  --out PATH               database file to write (a folder for --kind split)\n"
        "  --kind KIND              standard (type 3, default), talmo (0), recorder (4),\n"
        "                           basic (6) or split (5, one database per log)\n"
        "  --seed N                 seed of the simulated supply (default 1)\n"
        "  --start YYYY-MM-DD       first day (default 2024-03-04)\n"
        "  --days D                 number of days, 1 to 366 (default 3)\n"
        "  --interval-minutes M     snapshot interval, a divisor of 60 (default 5)\n"
        "  --points N               snapshot points, 1 to 50 (default 50)\n"
        "  --schema-version V       8.6 (default), 8.8 to 9.1, or an older version to\n"
        "                           upgrade: 7.5, 7.55, 7.6, 7.7, 7.8, 7.9, 8.0 to 8.5\n"
        "  --hardware-name TEXT     the meter's name (default: type name and seed)\n"
        "  --pq-test-parameters F,V the EN 50160 test settings P_Freq (0 or 1) and P_FVF\n"
        "                           (0 to 255) of every test row (default 1,0)\n"
        "  --overwrite              replace existing output\n"
        "  --verbose                report each file written\n"
        "  --help                   show this text\n");
}

bool SimCommandLine::number(const QString& option, const QString& text, int low, int high, int& out)
{
    bool ok = false;
    const int value = text.toInt(&ok);
    if (!ok || value < low || value > high) {
        m_error = QStringLiteral("%1 needs a whole number from %2 to %3, not \"%4\"")
                      .arg(option)
                      .arg(low)
                      .arg(high)
                      .arg(text);
        return false;
    }
    out = value;
    return true;
}

void SimCommandLine::parse(const QStringList& arguments)
{
    qsizetype i = 0;
    if (!arguments.isEmpty() && arguments.front() == QStringLiteral("demo")) {
        m_action = Action::Demo;
        i = 1;
    }
    const QStringList demoOptions{QStringLiteral("--out"), QStringLiteral("--overwrite"),
                                  QStringLiteral("--verbose"), QStringLiteral("--help")};
    for (; i < arguments.size(); ++i) {
        const QString option = arguments.at(i);
        if (option == QStringLiteral("--help") || option == QStringLiteral("-h")) {
            m_action = Action::Help;
            return;
        }
        if (option == QStringLiteral("--overwrite")) {
            m_options.overwrite = true;
            continue;
        }
        if (option == QStringLiteral("--verbose")) {
            m_options.verbose = true;
            continue;
        }
        if (!option.startsWith(QStringLiteral("--"))) {
            m_error = QStringLiteral("unexpected argument \"%1\"").arg(option);
            return;
        }
        if (m_action == Action::Demo && !demoOptions.contains(option)) {
            m_error = QStringLiteral("demo takes only --out, --overwrite and --verbose, not %1")
                          .arg(option);
            return;
        }
        if (i + 1 >= arguments.size()) {
            m_error = QStringLiteral("%1 needs a value").arg(option);
            return;
        }
        const QString value = arguments.at(++i);
        if (option == QStringLiteral("--out")) {
            m_options.out = value;
        } else if (option == QStringLiteral("--kind")) {
            const auto kind = MeterProfile::parse(value);
            if (!kind) {
                m_error = QStringLiteral("unknown kind \"%1\" (standard, talmo, recorder, "
                                         "basic or split)")
                              .arg(value);
                return;
            }
            m_options.kind = *kind;
        } else if (option == QStringLiteral("--seed")) {
            bool ok = false;
            m_options.seed = value.toULongLong(&ok);
            if (!ok) {
                m_error =
                    QStringLiteral("--seed needs a whole number 0 or above, not \"%1\"").arg(value);
                return;
            }
        } else if (option == QStringLiteral("--start")) {
            m_options.start = QDate::fromString(value, QStringLiteral("yyyy-MM-dd"));
            if (!m_options.start.isValid() || m_options.start.year() < 1980) {
                m_error = QStringLiteral("--start needs a date YYYY-MM-DD from 1980 on, not \"%1\"")
                              .arg(value);
                return;
            }
        } else if (option == QStringLiteral("--days")) {
            if (!number(option, value, 1, 366, m_options.days))
                return;
        } else if (option == QStringLiteral("--interval-minutes")) {
            if (!number(option, value, 1, 60, m_options.intervalMinutes))
                return;
            if (60 % m_options.intervalMinutes != 0) {
                m_error = QStringLiteral("--interval-minutes must divide an hour (1, 2, 3, 4, "
                                         "5, 6, 10, 12, 15, 20, 30 or 60), not %1")
                              .arg(value);
                return;
            }
        } else if (option == QStringLiteral("--points")) {
            if (!number(option, value, 1, 50, m_options.points))
                return;
        } else if (option == QStringLiteral("--schema-version")) {
            bool ok = false;
            const double version = value.toDouble(&ok);
            bool known = false;
            for (double v : schemaVersions())
                known = known || (ok && std::abs(v - version) < 1e-6);
            if (!known) {
                m_error =
                    QStringLiteral("schema version \"%1\" is not written by this "
                                   "simulator; choose 7.5, 7.55, 7.6, 7.7, 7.8, 7.9, 8.0 to 8.6 "
                                   "or 8.8 to 9.1")
                        .arg(value);
                return;
            }
            m_options.schemaVersion = version;
        } else if (option == QStringLiteral("--pq-test-parameters")) {
            const QStringList parts = value.split(QLatin1Char(','));
            if (parts.size() != 2 ||
                !number(option, parts.at(0), 0, 1, m_options.pqTest.frequencyParameter) ||
                !number(option, parts.at(1), 0, 255, m_options.pqTest.fastVoltageAllowance)) {
                if (m_error.isEmpty())
                    m_error = QStringLiteral("--pq-test-parameters needs F,V: P_Freq 0 or 1 and "
                                             "P_FVF 0 to 255, not \"%1\"")
                                  .arg(value);
                return;
            }
        } else if (option == QStringLiteral("--hardware-name")) {
            if (value.trimmed().isEmpty()) {
                m_error = QStringLiteral("--hardware-name needs a text");
                return;
            }
            m_options.hardwareName = value;
        } else {
            m_error = QStringLiteral("unknown option %1").arg(option);
            return;
        }
    }
    if (m_options.out.isEmpty())
        m_error = QStringLiteral("--out is required");
}

} // namespace lorvane::sim
