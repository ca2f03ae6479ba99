#include "vwSession.h"
#include "vwRecorder.h"
#include "vwSessionClock.h"

#include "gwHeadlessWindow.h"
#include "gwMouseEvent.h"
#include "tsFolder.h"
#include "tsTable.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace
{
const std::string every_kind = tsFolder().text(VW_TEST_DATA "/every-kind.session");

vwSession parsed(const std::string& text)
{
    std::istringstream stream(text);
    vwSession session;
    std::string error;
    EXPECT_EQ(vw_read_session(stream, session, error), 1) << error;
    return session;
}

std::string written(const vwSession& session)
{
    std::ostringstream text;
    vw_write_session_head(text, session);
    for (const vwStep& step : session.steps)
        vw_write_step(text, step);
    return text.str();
}
}

TEST(vwSession, what_is_read_is_written_the_same)
{
    const vwSession session = parsed(every_kind);
    EXPECT_EQ(written(session), every_kind);
    EXPECT_EQ(session.steps.size(), 13u);
    EXPECT_EQ(session.steps[10].end_time(), 1.25);
    EXPECT_EQ(session.steps[11].end_time(), 2.25);
}

TEST(vwSession, comments_blank_lines_and_carriage_returns_mean_nothing)
{
    const vwSession session = parsed("# before\r\n\r\ngr-session 1\r\n\t0.5\tmove 1 2 # there\r\n\r\n");
    ASSERT_EQ(session.steps.size(), 1u);
    EXPECT_EQ(written(session), "gr-session 1\nsize 960 720\nviews 1\n0.5 move 1 2\n");
}

TEST(vwSession, bad_lines_are_refused_by_number)
{
    for (const auto& row : ts_table(TS_TABLES "mistakes.table", "sessions"))
    {
        std::istringstream stream(std::string("gr-session 1\n") + row[1]);
        vwSession session;
        session.width = 123;
        std::string error;
        EXPECT_EQ(vw_read_session(stream, session, error), 0) << row[0];
        EXPECT_EQ(error, row[2]) << row[0];
        EXPECT_EQ(session.width, 123) << row[0];
    }
}

TEST(vwSession, other_files_are_no_sessions)
{
    for (const char* text : {"", "# nothing\n", "0 move 1 2\n", "gr-session 2\n"})
    {
        std::istringstream stream(text);
        vwSession session;
        std::string error;
        EXPECT_EQ(vw_read_session(stream, session, error), 0) << text;
        EXPECT_NE(error, "") << text;
    }
}

TEST(vwSession, times_with_few_digits_do_not_lie_before_each_other)
{
    EXPECT_EQ(parsed("gr-session 1\n0 idle 4 0.1\n0.3 move 1 2\n").steps.size(), 2u); // 3 * 0.1 is more than 0.3
}

TEST(vwRecorder, what_was_recorded_posts_the_same_events_again)
{
    const tsFolder folder;
    const std::string file = folder.write("s.session", "old");
    const vwSession session = parsed(every_kind);
    gwHeadlessWindow window(640, 480);
    std::string error;
    vwSessionClock clock;
    vwRecorder recorder(window.input());
    ASSERT_EQ(recorder.start(file, session, error), 1) << error;
    EXPECT_EQ(folder.text("s.session"), "old") << "nothing has happened yet";
    for (const vwStep& step : session.steps)
    {
        clock.session_time(step.time);
        vw_post_step(step, window);
        if (step.kind == vwSTEP_IDLE)
            recorder.idle();
        if (step.kind == vwSTEP_RESIZE)
            recorder.resized(step.width, step.height);
    }
    window.input().post(gwMouseEvent(&window, 2000000, 0, 0)); // no session holds such a place
    recorder.resized(100000, 0);
    // As after the end of the process: nothing waits to be written.
    const std::string expected = every_kind.substr(0, every_kind.find("1.5 idle")) + "1.5 idle\n2.25 resize 16384 1\n";
    EXPECT_EQ(written(parsed(folder.text("s.session"))), expected);
    clock.session_time(3);
    ASSERT_EQ(recorder.finish(error), 1) << error;
    EXPECT_EQ(written(parsed(folder.text("s.session"))), expected + "3 picture picture-1\n");
}
