#include "support/inparallel.h"
#include "support/watchdog.h"
#include "voxi_util/stringid.h"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <thread>
#include <vector>

using namespace VOXI;

TEST(StringID, equalTextsAreOneName)
{
    const StringID fromText(std::string("format/one"));
    const StringID fromLiteral("format/one");
    EXPECT_EQ(fromText, fromLiteral);
    EXPECT_EQ(std::hash<StringID>{}(fromText), std::hash<StringID>{}(fromLiteral));
    EXPECT_EQ(&fromText.getString(), &fromLiteral.getString());
    EXPECT_NE(fromText, StringID("format/two"));
    EXPECT_NE(fromText, StringID("FORMAT/ONE"));
}

TEST(StringID, nothingIsTheEmptyText)
{
    const char* const none = nullptr;
    for (const StringID& empty :
         {StringID(), StringID(""), StringID(none), StringID(std::string())}) {
        EXPECT_TRUE(empty.isEmpty());
        EXPECT_EQ(empty, StringID());
        EXPECT_EQ(empty.getString(), "");
    }
    EXPECT_LT(StringID(), StringID("anything"));
}

TEST(StringID, charactersOfValueZeroCount)
{
    const std::string zero(1, '\0');
    const StringID one(zero);
    const StringID tail("a" + zero + "b");
    EXPECT_FALSE(one.isEmpty());
    EXPECT_NE(tail, StringID("a"));
    EXPECT_NE(tail, StringID("a" + zero + "c"));
    EXPECT_EQ(tail.getString().size(), 3u);
}

// All threads ask for the same new text at the same moment, again and again. Long texts take long
// to look up, which leaves time for several threads to find that there is none yet.
TEST(StringID, threadsAgreeOnTheNameOfANewText)
{
    const Watchdog watchdog(std::chrono::seconds(60), "StringID threads");
    constexpr std::size_t threadCount = 3;
    constexpr std::size_t textCount = 100;
    const std::string tail(300000, 'x');
    std::vector<std::vector<StringID>> found(threadCount, std::vector<StringID>(textCount));
    std::atomic<int> wrongTexts{0};
    std::atomic<std::size_t> arrived{0};
    inParallel(threadCount, [&](int thread) {
        for (std::size_t i = 0; i < textCount; ++i) {
            const std::string text = std::to_string(i) + tail;
            // Not a barrier: threads that it puts to sleep wake too late to meet.
            ++arrived;
            while (arrived < (i + 1) * threadCount)
                std::this_thread::yield();
            StringID& own = found[std::size_t(thread)][i];
            own = StringID(text);
            if (own.getString() != text)
                ++wrongTexts;
        }
    });
    EXPECT_EQ(wrongTexts, 0);
    for (const std::vector<StringID>& other : found)
        EXPECT_EQ(other, found.front());
    EXPECT_EQ(std::set<StringID>(found.front().begin(), found.front().end()).size(), textCount);
}
