// SPDX-License-Identifier: GPL-3.0-or-later
#include "SelectionButtonTexts.h"

namespace lorvane {

const std::array<ButtonText, ViewButtons::count>& viewButtonTexts()
{
    static const std::array<ButtonText, ViewButtons::count> texts{{
        {"310010", "Database Status", "310030", "View Database Status"},
        {"310011", "Snapshots", "310031", "View Snapshot"},
        {"310012", "Demand", "310032", "View Demand"},
        {"310013", "Limits", "310033", "View Limit"},
        {"310014", "Waveform", "310034", "View Waveform"},
        {"310015", "Power Quality", "310035", "View Power Quality"},
        {"310016", "Vex*Grid Reports", "310036", "View Vex*Grid Reports"},
        {"310017", "Status Change (Inputs)", "310037", "View Status Change (Inputs)"},
        {"310018", "Control Output (Relays)", "310038", "View Control Output (Relays)"},
        {"310019", "PQDIF Format", "310039", "Export waveform data to PQDIF"},
        {"310020", "Energy Billing Module", "310040", "Energy Billing Module"},
        {"310021", "Flicker", "310041", "Flicker"},
        {"310022", "System Event", "310042", "System Event"},
        {"310023", "COMTRADE", "310043", "COMTRADE Format"},
        {"310024", "EN50160 / IEC 61000-4-30", "310044", "EN50160 / IEC 61000-4-30"},
    }};
    return texts;
}

const std::array<ButtonText, 6>& selectionButtonTexts()
{
    static const std::array<ButtonText, 6> texts{{
        {"310060", "Meter &1", "310070", "Select Meter 1"},
        {"310061", "Meter &2", "310071", "Select Meter 2"},
        {"310062", "&Data Points", "310072", "Select Snapshot Data Points"},
        {"310063", "&Time Range", "310073", "Select Time Range"},
        {"310064", "Back To &Halyx", "310074", "Back to "},
        {"310065", "&Help", "310075", "Help"},
    }};
    return texts;
}

} // namespace lorvane
