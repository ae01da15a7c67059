// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QList>

namespace lorvane::sim {

/// One disturbance of the supply: a dip (sag, interruptions included), a swell or a transient
/// on one voltage channel. `residualPercent` is the lowest (dip) or highest (swell) RMS in
/// percent of nominal, the value a meter logs as `PQ%`.
struct Disturbance
{
    enum class Kind
    {
        Sag = 2,
        Swell = 1,
        Transient = 3
    };
    Kind kind = Kind::Sag;
    int channel = 0;        ///< 0 Van, 1 Vbn, 2 Vcn
    qint64 startSecond = 0; ///< seconds since the epoch, meter local time read as UTC
    double startMs = 0.0;   ///< fraction of the start second, 0 to 999.9
    double durationMs = 0.0;
    double residualPercent = 100.0;
    double transientPeakVolts = 0.0; ///< peak added to the wave by a transient
};

/// A deterministic three-phase supply with a daily load cycle, from which every simulated log
/// is drawn, so that snapshots, captures, PQ events and compliance statistics of one meter
/// agree with each other. Each quantity is a pure function of the seed and the instant.
/// Times are seconds since the epoch of the meter's local wall clock, carried as UTC.
class PowerSystemModel
{
public:
    struct Config
    {
        quint64 seed = 1;
        qint64 startSecond = 0;        ///< first instant of the simulated period
        qint64 endSecond = 86400;      ///< end of the period (exclusive)
        double nominalVoltage = 120.0; ///< phase to neutral, volts
        double frequency = 60.0;
        double ratedCurrent = 400.0; ///< amps at full load
        double disturbancesPerDay = 6.0;
    };

    explicit PowerSystemModel(const Config& config);

    const Config& config() const { return m_config; }

    /// RMS phase-to-neutral voltage of phase 0..2 (volts), disturbances included.
    double voltage(int phase, qint64 second, double ms = 0.0) const;
    /// RMS line voltage of pair 0 (ab), 1 (bc), 2 (ca).
    double lineVoltage(int pair, qint64 second) const;
    /// RMS current of phase 0..2; phase 3 is the neutral.
    double current(int phase, qint64 second) const;
    double frequency(qint64 second) const;
    /// Displacement power factor of a phase (lagging, 0.80 to 0.99).
    double powerFactor(int phase, qint64 second) const;
    /// Real, reactive and apparent power of a phase (W, var, VA).
    double realPower(int phase, qint64 second) const;
    double reactivePower(int phase, qint64 second) const;
    double apparentPower(int phase, qint64 second) const;
    /// Voltage harmonic of order 2..50 in percent of the fundamental.
    double voltageHarmonicPercent(int phase, int order, qint64 second) const;
    double voltageThdPercent(int phase, qint64 second) const;
    /// Current harmonic of order 2..50 in percent of the fundamental.
    double currentHarmonicPercent(int phase, int order, qint64 second) const;
    double currentThdPercent(int phase, qint64 second) const;
    /// Short-term (10 min) and long-term (2 h) flicker severity.
    double pst(int phase, qint64 second) const;
    double plt(int phase, qint64 second) const;
    /// Negative-sequence voltage unbalance in percent.
    double unbalancePercent(qint64 second) const;

    /// Disturbances of the period in time order.
    const QList<Disturbance>& disturbances() const { return m_disturbances; }

private:
    double loadFactor(qint64 second) const;
    double jitter(int quantity, qint64 bucket) const;

    Config m_config;
    QList<Disturbance> m_disturbances;
};

} // namespace lorvane::sim
