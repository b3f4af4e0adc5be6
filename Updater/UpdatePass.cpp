#include "UpdatePass.h"

#include "Installation.h"
#include "Unpacker.h"

#include <QtCore/QCryptographicHash>

#include <tuple>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

const QString product = u"Corvane"_s;
const QString channel = u"stable"_s;
/// How many times a long step tells how far it has come.
constexpr qint64 tellings = 200;

QUrl notesAddress(const QUrl &feed, const QString &version)
{
    QUrl address = feed.adjusted(QUrl::RemoveQuery | QUrl::RemoveFragment);
    address.setPath(u"/release-notes/Corvane-"_s + version, QUrl::DecodedMode);
    return address;
}

bool isSigned(const QByteArray &page, const NotesSum &sum)
{
    return page.size() == sum.size
        && QCryptographicHash::hash(page, QCryptographicHash::Sha256) == sum.sha256;
}

} // namespace

UpdatePass::UpdatePass(const Setup &setup, Listener listener)
    : m_setup(setup), m_listener(std::move(listener)), m_state(UpdateState::load(setup.stateFolder))
{
    m_setup.running.failedBuilds = m_state.failedBuilds;
    m_setup.running.seed = m_state.seed;
}

void UpdatePass::start()
{
    m_feed = std::make_unique<Fetch>(Fetch::documentLimits(Feed::longest));
    m_feed->get(m_setup.feed, [this](const Fetch::Body &body) { readFeed(body); });
}

void UpdatePass::hear(UpdateWord word)
{
    const bool isInstall = word == UpdateWord::install;
    if (isInstall && m_stage == Stage::offering)
        download();
    else if (isInstall && m_stage == Stage::ready)
        install();
    else if (!isInstall)
        finish();
}

void UpdatePass::readFeed(const Fetch::Body &body)
{
    const QDateTime clock = QDateTime::currentDateTimeUtc();
    const KnownTime time{clock, m_setup.built, m_state.issued};
    m_state.lastChecked = clock;
    if (!body) {
        remember();
        return fail(UpdateMessage::Failed{body.error().problem, body.error().detail});
    }
    const auto feed = believe(*body, time);
    remember();
    if (!feed)
        return fail(UpdateMessage::Failed{feed.error()});
    m_choice = chooseRelease(feed->entries, m_setup.running, time.now(), m_setup.asker);
    if (!m_choice) {
        tell({UpdateMessage::NotFound{}});
        return finish();
    }
    const Release &release = m_choice->entry.release;
    tell({UpdateMessage::Found{release.version, release.build, release.date}});
    // Whoever did not ask is not there to choose.
    if (m_setup.asker == Asker::schedule)
        return finish();
    m_stage = Stage::offering;
    fetchNotes();
}

expected<Feed, UpdateProblem> UpdatePass::believe(const QByteArray &document, const KnownTime &time)
{
    auto feed = FeedReader{m_setup.keys, product, channel}.read(document);
    if (!feed)
        return feed;
    if (const auto problem = time.problem(*feed))
        return unexpected<UpdateProblem>(*problem);
    m_state.issued = feed->issued;
    return feed;
}

void UpdatePass::fetchNotes()
{
    m_notes = std::make_unique<Fetch>(Fetch::documentLimits(Feed::longestNotes));
    m_notes->get(notesAddress(m_setup.feed, m_choice->entry.release.version),
        [this](const Fetch::Body &page) {
            if (page && isSigned(*page, m_choice->entry.notes))
                tell({UpdateMessage::Notes{*page}});
            else
                tell({UpdateMessage::NotesFailed{
                    page ? SendProblem::answerNotUnderstood : page.error().problem}});
        });
}

void UpdatePass::download()
{
    m_stage = Stage::downloading;
    auto folder = InstallFolder::open(m_setup.folder);
    if (!folder)
        return fail(folder.error());
    m_folder = *std::move(folder);
    auto staging = m_folder->stage(m_choice->artefact.unpackedSize);
    if (!staging)
        return fail(staging.error());
    m_staging = *std::move(staging);
    m_file.emplace(m_choice->artefact);
    m_download = std::make_unique<Fetch>(Fetch::artefactLimits(m_choice->artefact.size));
    const Fetch::Sink sink{
        .write = [this](const QByteArray &piece, qint64 at) { write(piece, at); },
        .accept =
            [this] {
                const auto sealed = m_file->seal();
                m_refused = sealed ? std::nullopt : std::optional(sealed.error());
                return sealed.has_value();
            }};
    m_download->get(m_choice->artefact.addresses, sink, [this](const Transfer::End &end) {
        if (end)
            unpack();
        else if (m_refused)
            fail(*m_refused);
        else
            fail({end.error().problem, end.error().detail});
    });
}

void UpdatePass::write(const QByteArray &piece, qint64 at)
{
    if (at == 0) {
        m_untold = 0;
        m_refused.reset();
        tell({UpdateMessage::Downloading{m_choice->artefact.size}});
    }
    if (const auto written = m_file->write(piece, at); !written) {
        m_download->cancel();
        return fail(written.error());
    }
    m_untold += piece.size();
    const bool isWhole = at + piece.size() == m_choice->artefact.size;
    if (isWhole || m_untold > m_choice->artefact.size / tellings)
        tell({UpdateMessage::Received{std::exchange(m_untold, 0)}});
}

void UpdatePass::unpack()
{
    tell({UpdateMessage::Extracting{}});
    const auto tried = unpackAndTry(*m_file->verified());
    m_file.reset(); // which may be large
    if (!tried)
        return fail(tried.error());
    m_stage = Stage::ready;
    tell({UpdateMessage::Ready{}});
}

InstallResult<void> UpdatePass::unpackAndTry(int file)
{
    const qint64 size = qMax(m_choice->artefact.unpackedSize, qint64(1));
    qint64 told = 0;
    Unpacker unpacker(m_staging->number(), size, [&](qint64 done) {
        if (done - told <= size / tellings)
            return;
        told = done;
        tell({UpdateMessage::Extracted{static_cast<double>(done) / static_cast<double>(size)}});
    });
    if (auto unpacked = unpacker.unpack(file); !unpacked)
        return unpacked;
    return tryStaged(*m_folder, *m_staging, m_choice->entry.release.build);
}

void UpdatePass::install()
{
    const auto previous = adoptStaged(*m_folder, m_choice->entry.release.build);
    if (!previous)
        return fail(previous.error());
    const Release &release = m_choice->entry.release;
    // Whoever starts it must be able to go back, which takes the folder's lock.
    m_folder.reset();
    tell({UpdateMessage::Installed{release.build, release.version, *previous}});
    finish();
}

void UpdatePass::remember()
{
    // Nothing is lost with it but the time of this check.
    std::ignore = m_state.save(m_setup.stateFolder);
}

void UpdatePass::tell(const UpdateMessage &message) const
{
    m_listener.onMessage(message);
}

void UpdatePass::fail(const UpdateMessage::Failed &failed)
{
    tell({failed});
    finish();
}

void UpdatePass::fail(const InstallFailure &failure)
{
    fail(UpdateMessage::Failed{failure.problem, failure.detail});
}

void UpdatePass::finish()
{
    if (std::exchange(m_stage, Stage::over) == Stage::over)
        return;
    for (const auto &fetch : {m_feed.get(), m_notes.get(), m_download.get()}) {
        if (fetch)
            fetch->cancel();
    }
    m_listener.onEnd();
}

} // namespace corvane
