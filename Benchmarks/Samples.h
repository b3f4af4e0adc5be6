#pragma once

#include <QtCore/QList>

#include <algorithm>

namespace corvane::bench {

/// The value below which this share of the samples lies. There must be samples.
inline double quantile(QList<double> samples, double share)
{
    std::ranges::sort(samples);
    return samples[static_cast<qsizetype>(share * static_cast<double>(samples.size() - 1))];
}

inline double median(const QList<double> &samples)
{
    return quantile(samples, 0.5);
}

inline double percentile95(const QList<double> &samples)
{
    return quantile(samples, 0.95);
}

} // namespace corvane::bench
