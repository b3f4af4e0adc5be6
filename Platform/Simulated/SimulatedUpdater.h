#pragma once

#include "Clock.h"
#include "Updater.h"

namespace corvane {

/// Plays a pass in memory: a step each time that its clock has moved on by `stepLength`, unless it waits
/// for the user. What it finds, and where it fails, are its public fields.
class SimulatedUpdater final : public QObject, public Updater
{
    Q_OBJECT

public:
    enum class Step {
        start, ///< of the updater itself
        check,
        notes, ///< the pass goes on without them
        download,
        extraction,
        installation,
    };
    struct Failure {
        Step step;
        UpdaterError error;
    };

    static constexpr Clock::Duration stepLength{100};

    explicit SimulatedUpdater(Clock &clock) : m_clock(clock) { }

    expected<void, UpdaterError> start(UpdateUserDriver &driver, UpdaterEvents &events) override;
    void check(UpdateCheck check) override;
    bool checksAutomatically() override { return checksByItself; }
    void setChecksAutomatically(bool checks) override { checksByItself = checks; }
    void setDownloadsAutomatically(bool downloads) override { downloadsByItself = downloads; }
    std::optional<QDateTime> lastCheckDate() override { return lastChecked; }

    std::optional<UpdateCandidate> newer; ///< what the feed offers
    QByteArray notes;
    quint64 size = 12'400'000; ///< of the download
    bool tellsSize = true;
    std::optional<Failure> failure;
    bool checksByItself = true;
    std::optional<bool> downloadsByItself;
    std::optional<QDateTime> lastChecked;

    [[nodiscard]] bool isUnderWay() const { return m_check.has_value(); }
    [[nodiscard]] bool hasRelaunched() const { return m_hasRelaunched; }

private:
    /// Does that in a while, unless the pass is another one by then.
    void later(void (SimulatedUpdater::*step)());
    /// Fails here if it is to. Whether it has.
    [[nodiscard]] bool fails(Step step);
    void finish(const std::optional<UpdaterError> &error = {});
    [[nodiscard]] UpdateUserDriver::Cancellation cancellation();
    [[nodiscard]] UpdateUserDriver::Reply reply(void (SimulatedUpdater::*next)());

    void readFeed();
    void readNotes();
    void download();
    void receiveHalf();
    void receiveRest();
    void extract();
    void offerToInstall();
    void install();

    Clock &m_clock;
    UpdateUserDriver *m_driver = nullptr;
    UpdaterEvents *m_events = nullptr;
    std::optional<UpdateCheck> m_check; ///< of the pass under way
    int m_pass = 0;
    bool m_hasRelaunched = false;
};

} // namespace corvane
