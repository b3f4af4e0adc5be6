#include "Turns.h"

namespace corvane::bench {

using namespace Qt::StringLiterals;

expected<QList<QList<double>>, QString> takeTurns(
    const QList<Contestant> &contestants, int warmUpRounds, int rounds)
{
    QList<QList<double>> times(contestants.size());
    size_t goal = 0;
    for (int round = 0; round < warmUpRounds + rounds; ++round) {
        for (qsizetype turn = 0; turn < contestants.size(); ++turn) {
            // The order turns, too, so that nobody always follows the same one.
            const qsizetype who = (turn + round) % contestants.size();
            const auto time = contestants[who].time(goal);
            if (!time)
                return unexpected<QString>(
                    u"%1 did not bring every window to its frame"_s.arg(contestants[who].name));
            if (round >= warmUpRounds)
                times[who] << *time;
            goal = 1 - goal;
        }
    }
    return times;
}

} // namespace corvane::bench
