-- SPDX-License-Identifier: GPL-3.0-or-later
-- Names of the dictionary's data point groups and items, found by their English text (id
-- 999999). Unit symbols and phase names (Van, Ia, kWh) are the same in German and have no row.
BEGIN;
INSERT INTO MAIN (IndexValue, TextValue, TranslatedValue) VALUES
    (999999, 'Voltage', 'Spannung'),
    (999999, 'Billing', 'Abrechnung'),
    (999999, 'Current', 'Strom'),
    (999999, 'Power', 'Leistung'),
    (999999, 'Power Factor', 'Leistungsfaktor'),
    (999999, 'Frequency', 'Frequenz'),
    (999999, 'Energy', 'Energie'),
    (999999, 'Demand', 'Leistungsmittelwert'),
    (999999, 'Average L-N', 'Mittelwert L-N'),
    (999999, 'Average L-L', 'Mittelwert L-L'),
    (999999, 'Average', 'Mittelwert'),
    (999999, 'Unbalance %', 'Unsymmetrie %'),
    (999999, 'kWh Delivered', 'kWh bezogen'),
    (999999, 'kWh Received', 'kWh geliefert'),
    (999999, 'kvarh Delivered', 'kvarh bezogen');
COMMIT;
