#include "vwSession.h"
#include "vwRecorder.h"
#include "vwSessionClock.h"

#include "gwHeadlessWindow.h"
#include "gwMouseEvent.h"
#include "tsFolder.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace
{
const std::string every_kind = "gr-session 1\n"
                               "size 640 480\n"
                               "views 3\n"
                               "0 press mouse_button 1 10 20\n"
                               "0.016 move 12 21\n"
                               "0.016 idle\n"
                               "0.1 release mouse_button 1 12 21 3\n"
                               "0.1 press qwerty_key 82 12 21\n"
                               "0.1 release other_key 5 12 21 16384\n"
                               "0.2 wheel 5 6 -1 1\n"
                               "0.3 spaceball 5 6 0.1 0.2 0.3 -0.1 -0.2 -0.3\n"
                               "0.3 spaceball 5 6 1 0 0 0 0 0 2 0.05\n"
                               "0.3 spaceball 5 6 1 0 0 0 0 0 0 0.05\n"
                               "1.25 resize 800 600\n"
                               "1.5 idle 4 0.25\n"
                               "2.25 picture the-end_1\n";

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

const struct
{
    const char* name;
    const char* text; // after the first line
    const char* error;
} bad_cases[] = {
    {"unknown event", "0 jump 1 2\n", "line 2: 'jump' is no event"},
    {"no event", "1\n", "line 2: the event is missing"},
    {"time that is no number", "soon move 1 2\n", "line 2: 'soon' is no time"},
    {"time that goes back", "# note\n1 move 1 2\n0.5 move 1 2\n",
     "line 4: time 0.5 lies before 1, when the event before it ends"},
    {"a long word that cannot be printed", "0 \x1b[2J012345678901234567890123456789012345678901234567890123456789\n",
     "line 2: '\\x1b[2J012345678901234567890123456789012345...' is no event"},
    {"time inside idle calls", "1 idle 3 0.5\n1.9 move 1 2\n",
     "line 3: time 1.9 lies before 2, when the event before it ends"},
    {"missing position", "0 move 1\n", "line 2: y is missing"},
    {"part of a number", "0 move 1 2px\n", "line 2: '2px' is no y"},
    {"too many words", "0 move 1 2 0 7\n", "line 2: '7' is too much"},
    {"unknown key type", "0 press button 1 1 2\n", "line 2: 'button' is no key type"},
    {"modifiers out of range", "0 move 1 2 32768\n", "line 2: modifier set 32768 is out of range"},
    {"no idle calls", "0 idle 0\n", "line 2: number of idle calls 0 is out of range"},
    {"picture name that leaves the folder", "0 picture ../x\n",
     "line 2: a picture's name consists of letters, digits, '-' and '_'"},
    {"picture twice", "0 picture a\n1 picture a\n", "line 3: there is a picture 'a' already"},
    {"head after events", "0 idle\nsize 10 10\n", "line 3: 'size' must come before all events"},
    {"empty window", "size 0 10\n", "line 2: width 0 is out of range"},
    {"not a number", "nan idle\n", "line 2: time nan is out of range"},
};
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
    for (const auto& c : bad_cases)
    {
        std::istringstream stream(std::string("gr-session 1\n") + c.text);
        vwSession session;
        session.width = 123;
        std::string error;
        EXPECT_EQ(vw_read_session(stream, session, error), 0) << c.name;
        EXPECT_EQ(error, c.error) << c.name;
        EXPECT_EQ(session.width, 123) << c.name;
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
