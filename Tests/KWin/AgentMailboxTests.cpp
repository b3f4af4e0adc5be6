#include "AgentMailbox.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QStringList>

#include <gtest/gtest.h>

#include <thread>

namespace corvane::kwin {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using enum AgentMailbox::Arrival;

class AgentMailboxTests : public testing::Test
{
protected:
    AgentMailbox::Arrival poll(const QString &number = {}, const QString &answer = {})
    {
        return mailbox.polled(number, answer, [this](const QString &command) {
            const QMutexLocker lock(&mutex);
            commands << command;
        });
    }
    std::optional<QJsonObject> ask(const QString &deed, std::chrono::milliseconds patience)
    {
        return mailbox.ask({{"deed"_L1, deed}}, std::chrono::steady_clock::now() + patience);
    }
    [[nodiscard]] QString numberOf(qsizetype index)
    {
        const QMutexLocker lock(&mutex);
        return QJsonDocument::fromJson(commands.value(index).toUtf8())["number"_L1].toString();
    }

    AgentMailbox mailbox;
    QMutex mutex; ///< of the commands
    QStringList commands; ///< that the agent has been handed
};

TEST_F(AgentMailboxTests, anAnswerThatCameTooLateIsNotTakenForThatToTheNextCommand)
{
    EXPECT_FALSE(ask(u"read"_s, 1h));
    EXPECT_EQ(poll(), greeting);
    EXPECT_FALSE(ask(u"first"_s, 0ms));
    std::thread agent([this] {
        EXPECT_EQ(poll(numberOf(0), u"{\"of\":1}"_s), late);
        while (numberOf(1).isEmpty())
            std::this_thread::yield();
        EXPECT_EQ(poll(numberOf(1), u"{\"of\":2}"_s), expected);
    });

    const auto answer = ask(u"second"_s, 1h);
    agent.join();

    EXPECT_EQ(answer.value_or(QJsonObject())["of"_L1], 2);
}

TEST_F(AgentMailboxTests, aCommandThatWasGivenUpBeforeItWasHandedOverIsNeverDone)
{
    std::ignore = poll();
    EXPECT_FALSE(ask(u"first"_s, 0ms));
    EXPECT_FALSE(ask(u"second"_s, 0ms));

    std::ignore = poll(numberOf(0), u"{}"_s);

    EXPECT_EQ(commands.size(), 1);
    EXPECT_TRUE(mailbox.renewPoll());
    EXPECT_FALSE(mailbox.renewPoll());
    EXPECT_EQ(commands.size(), 2);
}

TEST_F(AgentMailboxTests, aGlanceHoldsUntilACommandMayHaveChangedWhatItSaw)
{
    const auto seen = [this] { return mailbox.glance().value_or(QJsonObject())["at"_L1].toInt(); };
    std::ignore = poll();
    mailbox.glanced(0, u"{\"at\":1}"_s);
    std::ignore = mailbox.ask({}, {}, AgentMailbox::Effect::none);
    EXPECT_EQ(seen(), 1);

    EXPECT_FALSE(ask(u"place"_s, 0ms));
    EXPECT_EQ(seen(), 0);
    mailbox.glanced(1, u"{\"at\":2}"_s); // was on its way
    EXPECT_EQ(seen(), 0);
    mailbox.glanced(2, u"{\"at\":3}"_s);
    EXPECT_EQ(seen(), 3);

    mailbox.clear();
    EXPECT_EQ(seen(), 0);
}

TEST_F(AgentMailboxTests, whoWaitsIsToldAtOnceThatTheAgentIsGone)
{
    std::ignore = poll();
    std::thread kwin([this] {
        while (numberOf(0).isEmpty())
            std::this_thread::yield();
        mailbox.clear();
    });

    EXPECT_FALSE(ask(u"read"_s, 1h));
    kwin.join();
    EXPECT_FALSE(mailbox.waitForFrames(std::chrono::steady_clock::now() + 1h));
}

} // namespace corvane::kwin
