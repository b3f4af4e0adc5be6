#include "AgentMailbox.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QStringList>

#include <gtest/gtest.h>

#include <thread>

namespace corvane::wayland {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class AgentMailboxTests : public testing::Test
{
protected:
    void poll(const QString &number = {}, const QString &answer = {}, const QString &news = {})
    {
        mailbox.polled(number, answer, news, [this](const QString &next, const QString &) {
            const QMutexLocker lock(&mutex);
            numbers << next;
        });
    }
    std::optional<QJsonObject> ask(const QString &deed, std::chrono::milliseconds patience)
    {
        return mailbox.ask(deed, std::chrono::steady_clock::now() + patience);
    }
    [[nodiscard]] QString numberOf(qsizetype index)
    {
        const QMutexLocker lock(&mutex);
        return numbers.value(index);
    }

    AgentMailbox mailbox;
    QMutex mutex; ///< of the numbers
    QStringList numbers; ///< of the commands that the agent has been handed
};

TEST_F(AgentMailboxTests, anAnswerThatCameTooLateIsNotTakenForThatToTheNextCommand)
{
    EXPECT_FALSE(ask(u"read"_s, 1h));
    poll();
    EXPECT_FALSE(ask(u"first"_s, 0ms));
    std::thread agent([this] {
        poll(numberOf(0), u"{\"of\":1}"_s);
        while (numberOf(1).isEmpty())
            std::this_thread::yield();
        poll(numberOf(1), u"{\"of\":2}"_s, u"moved"_s);
    });

    const auto answer = ask(u"second"_s, 1h);
    agent.join();

    EXPECT_EQ(answer.value_or(QJsonObject())["of"_L1], 2);
    EXPECT_EQ(mailbox.takeNews(), QStringList{u"moved"_s});
    EXPECT_FALSE(mailbox.waitForNews({}));
}

TEST_F(AgentMailboxTests, aCommandThatWasGivenUpBeforeItWasHandedOverIsNeverDone)
{
    poll();
    EXPECT_FALSE(ask(u"first"_s, 0ms));
    EXPECT_FALSE(ask(u"second"_s, 0ms));

    poll(numberOf(0), u"{}"_s);

    EXPECT_EQ(numbers.size(), 1);
    EXPECT_TRUE(mailbox.renewPoll());
    EXPECT_FALSE(mailbox.renewPoll());
    EXPECT_EQ(numbers.size(), 2);
}

TEST_F(AgentMailboxTests, whoWaitsIsToldAtOnceThatTheAgentIsGone)
{
    poll();
    std::thread kwin([this] {
        while (numberOf(0).isEmpty())
            std::this_thread::yield();
        mailbox.clear();
    });

    EXPECT_FALSE(ask(u"read"_s, 1h));
    kwin.join();
    EXPECT_FALSE(mailbox.waitForNews(std::chrono::steady_clock::now() + 1h));
}

} // namespace corvane::wayland
