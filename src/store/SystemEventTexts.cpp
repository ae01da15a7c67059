// SPDX-License-Identifier: GPL-3.0-or-later
#include "SystemEventTexts.h"

#include "platform/UserText.h"

#include <vector>

namespace lorvane {

namespace {

struct Entry
{
    const char* id;
    const char* english;
};

// One row per list, in the order of SystemEventTexts::List. Ids are 21LLNN: list LL from 01,
// entry NN from 00, so a translator finds a list's words together.
const std::vector<std::vector<Entry>>& sources()
{
    static const std::vector<std::vector<Entry>> lists{
        {{"210100", "Power"},
         {"210101", "Password"},
         {"210102", "Change Programmable Settings"},
         {"210103", "Change Firmware"},
         {"210104", "Change Time"},
         {"210105", "Test Mode"},
         {"210106", "Log Download"},
         {"210107", "Feature Reset"},
         {"210108", "System Initialization problem"},
         {"210109", "Change serial number"},
         {"210110", "Bio Byte"},
         {"210111", "K-Gate"},
         {"210112", "Security"}},
        {{"210200", "Run Time was stopped (power loss, boot mode, etc.)"},
         {"210201", "Run Time has started"},
         {"210202", "Run Time is active (features were initialized & enabled)"},
         {"210203", "DSP Run Time reset"}},
        {{"210300", "Power or Watchdog reset"},
         {"210301", "Lack of communication with the Display"},
         {"210302", "Out-of-Sequence Execution Trap"},
         {"210303", "Stalled/Missing internal routines"}},
        {{"210400", "Password protection was enabled"},
         {"210401", "Password protection was disabled"},
         {"210402", "Level 1 password was changed"},
         {"210403", "Level 2 password was changed"},
         {"210404", "Level 1 access was granted"},
         {"210405", "Level 2 access was granted"},
         {"210406", "An invalid password was supplied"}},
        {{"210500", "COMM run-time firmware, previous version was"},
         {"210501", "DSP run-time firmware, previous version was"}},
        {{"210600", "Previous time was"},
         {"210601", "Current time is"},
         {"210602", " Bad Time Detected "},
         {"210603", " Time was Repaired to "},
         {"210604", " Previous shift time "},
         {"210605", " Post shift time "},
         {"210606", " Early time "}},
        {{"210700", "Test Mode Ended"}, {"210701", "Energy Preset"}},
        {{"210800", "for TLC"},
         {"210801", "for TLC & CTPT"},
         {"210802", "for Uncompensated"},
         {"210803", "for CTPT"}},
        {{"210900", "Wh Test (Q1 & Q4)"},
         {"210901", "VARh Test (Q1 & Q2)"},
         {"210902", "VARh Test (Q3 & Q4)"},
         {"210903", "VAh Test (Q1 & Q4)"},
         {"210904", "VAh Test (Q2 & Q3)"},
         {"210905", "Rolling Average Test"},
         {"210906", "Block Average Test"},
         {"210907", "Wh Test (Q2 & Q3)"}},
        {{"211000", "Download started (while logging)"},
         {"211001", "Download started (logging paused)"},
         {"211002", "Download ended"}},
        {{"211100", "Historical Log 1"},
         {"211101", "Historical Log 2"},
         {"211102", "Sequence of Events/Limit State Log"},
         {"211103", "Sequence of Events/Limit Snapshot Log"},
         {"211104", "Digital Input State Log"},
         {"211105", "Digital Input Snapshot Log"},
         {"211106", "Digital Output State Log"},
         {"211107", "Digital Output Snapshot Log"},
         {"211108", "Flicker Log"},
         {"211109", "Waveform Trigger Log"},
         {"211110", "System Event Log"},
         {"211111", "Waveform Sample Log"},
         {"211112", "PQ Log"},
         {"211113", "Reset Log"},
         {"211114", "Historical Log 3"},
         {"211115", "Historical Log 4"},
         {"211116", "Historical Log 5"},
         {"211117", "Historical Log 6"},
         {"211118", "Historical Log 7"},
         {"211119", "Historical Log 8"},
         {"211120", "Event triggered Log"},
         {"211121", "Transient Log"}},
        {{"211200", "Reset all logs"},
         {"211201", "Reset maximum values"},
         {"211202", "Reset minimum values"},
         {"211203", "Reset energy values"},
         {"211204", "Reset Time-of-Use current month"},
         {"211205", "Reset internal input accumulations and aggregations"},
         {"211206", "Reset KYZ output accumulations"},
         {"211207", "Reset cumulative demand"},
         {"211208", "Reset historical log 1"},
         {"211209", "Reset historical log 2"},
         {"211210", "Reset sequence of events/limit log"},
         {"211211", "Reset digital input log"},
         {"211212", "Reset digital output log"},
         {"211213", "Reset flicker log"},
         {"211214", "Reset waveform log"},
         {"211215", "Reset PQ log"},
         {"211216", "Reset system event log"},
         {"211217", "Reset total average power factor"},
         {"211218", "Reset Time-of-Use active registers"},
         {"211219", "Test Mode"},
         {"211220", "Reset historical log 3"},
         {"211221", "Reset historical log 4"},
         {"211222", "Reset historical log 5"},
         {"211223", "Reset historical log 6"},
         {"211224", "Reset historical log 7"},
         {"211225", "Reset historical log 8"},
         {"211226", "Reset event triggered log"},
         {"211227", "Reset transient log"},
         {"211228", "Reset EN50160 Data"},
         {"211229", "Reset EN50160 Report"},
         {"211230", "Reset EN50160 Log"},
         {"211231", "Preset EN50160 Data"}},
        {{"211300", "from undefined port"},
         {"211301", "from Port 4:"},
         {"211302", "from Port 3:"},
         {"211303", "from Port 2:"},
         {"211304", "from Port 1:"},
         {"211305", "from DNP Port:"}},
        {{"211400", "RS-232/485"},
         {"211401", "Display"},
         {"211402", "Modem"},
         {"211403", "10BaseT Ethernet"},
         {"211404", "Modem with Dial-Out"},
         {"211405", "10/100 BaseT Ethernet"},
         {"211406", "10/100 BaseT Ethernet with Modem"},
         {"211407", "38400 Display"}},
        {{"211500", "NC"}, {"211501", "NO"}, {"211502", "Locked,"}},
        // The three words the eight gate types are made of; see build().
        {{"211600", "AND"}, {"211601", "OR"}, {"211602", "Hysteresis"}},
        {{"211700", "Enabled"}, {"211701", "Disabled"}},
        {{"211800", "Negative (-)"}, {"211801", "Positive (+)"}},
    };
    return lists;
}

} // namespace

SystemEventTexts::SystemEventTexts()
{
    build([](const char*, const char* english) { return QString::fromUtf8(english); });
}

void SystemEventTexts::fill()
{
    build([](const char* id, const char* english) { return userText(id, english); });
}

QString SystemEventTexts::entry(List which, int position) const
{
    const QStringList& texts = list(which);
    return position >= 0 && position < texts.size() ? texts.at(position) : QString();
}

void SystemEventTexts::build(const Translate& translate)
{
    const auto& all = sources();
    for (int i = 0; i < listCount; ++i) {
        QStringList& texts = m_lists[i];
        texts.clear();
        for (const Entry& e : all[static_cast<std::size_t>(i)])
            texts << translate(e.id, e.english);
    }
    // Gate types: AND, OR, X + OR, Hysteresis, then N before each of those four. X and N are
    // operator prefixes, not words: only the three words go through the catalogue.
    QStringList& gates = m_lists[static_cast<int>(List::LogicOperators)];
    const QStringList words = gates;
    gates = {words[0], words[1], QStringLiteral("X") + words[1], words[2]};
    for (int i = 0; i < 4; ++i)
        gates << QStringLiteral("N") + gates[i];
    m_portTypeHeading = translate("211490", "Port Type");
    m_undefinedRelayState = translate("211590", "Undefined");
}

} // namespace lorvane
