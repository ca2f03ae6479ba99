#include "coCallList.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

namespace
{
enum
{
    MOVED = 1,
    DELETED = 2
};

// Writes its name at each call, then does what the test wants done from inside the callback.
class Listener : public coReceiver
{
public:
    Listener(std::string name, std::string& log) : the_name(std::move(name)), the_log(log) {}

    coCallFunc call() { return coCallFunc::member<&Listener::called>(this); }
    std::function<void()> action;

private:
    void called()
    {
        the_log += the_name;
        // The action may destroy this listener, its closure included.
        const std::function<void()> todo = action;
        if (todo)
            todo();
    }
    std::string the_name;
    std::string& the_log;
};

class coCallListTest : public testing::Test
{
protected:
    void listen(Listener& listener, int reason = MOVED) { list->add(reason, listener.call()); }
    std::string fired(int reason = MOVED)
    {
        log.clear();
        list->fire(reason);
        return log;
    }

    std::string log;
    int sender = 0;
    std::unique_ptr<coCallList> list = std::make_unique<coCallList>(&sender);
    Listener a{"a", log}, b{"b", log}, c{"c", log};
};

class ArgumentListener : public coReceiver
{
public:
    void take(void* from, void* data)
    {
        sender = from;
        value = *static_cast<int*>(data);
    }
    void* sender = nullptr;
    int value = 0;
};
}

TEST_F(coCallListTest, calls_in_order_of_registration_by_reason)
{
    listen(c);
    listen(a, DELETED);
    listen(a);
    listen(a);
    EXPECT_EQ(fired(), "caa");
    EXPECT_EQ(fired(DELETED), "a");
    EXPECT_EQ(fired(99), "");
}

TEST_F(coCallListTest, hands_over_sender_and_data)
{
    ArgumentListener listener;
    list->add(MOVED, coCallFunc::member<&ArgumentListener::take>(&listener));
    int data = 42;
    list->fire(MOVED, &data);
    EXPECT_EQ(listener.sender, &sender);
    EXPECT_EQ(listener.value, 42);

    int calls = 0;
    list->add(DELETED, nullptr, [](coReceiver*, void*, void* count) { ++*static_cast<int*>(count); });
    list->fire(DELETED, &calls);
    EXPECT_EQ(calls, 1) << "a plain function needs no receiver";
}

TEST_F(coCallListTest, removes_by_receiver_by_reason_and_by_value)
{
    listen(a);
    listen(a, DELETED);
    listen(b);
    list->remove(MOVED, &a);
    EXPECT_EQ(fired() + fired(DELETED), "ba");
    EXPECT_EQ(a.n_call_lists(), 1);
    listen(a);
    listen(a);
    list->remove(MOVED, a.call());
    EXPECT_EQ(fired(), "ba") << "one of the two equal ones stays";
    list->remove(&a);
    EXPECT_EQ(fired() + fired(DELETED), "b");
    EXPECT_EQ(a.n_call_lists(), 0);
}

TEST_F(coCallListTest, receiver_destroyed_outside_a_firing_is_not_called)
{
    coCallList other(nullptr);
    {
        Listener brief("x", log);
        listen(brief);
        listen(b);
        other.add(MOVED, brief.call());
        EXPECT_EQ(fired(), "xb");
    }
    EXPECT_EQ(fired(), "b");
    EXPECT_EQ(list->count() + other.count(), 1);
}

TEST_F(coCallListTest, list_destroyed_first_is_forgotten_by_its_receivers)
{
    listen(a);
    listen(a, DELETED);
    list.reset();
    EXPECT_EQ(a.n_call_lists(), 0);
}

TEST_F(coCallListTest, callback_may_drop_itself_and_later_ones_while_firing)
{
    listen(a);
    listen(b);
    listen(c);
    a.action = [&]
    {
        a.clear_callbacks();
        b.clear_callbacks();
    };
    EXPECT_EQ(fired(), "ac");
    EXPECT_EQ(list->count(), 1);
    EXPECT_EQ(a.n_call_lists(), 0);
}

TEST_F(coCallListTest, receivers_may_be_destroyed_while_firing)
{
    auto first = std::make_unique<Listener>("1", log);
    auto second = std::make_unique<Listener>("2", log);
    listen(*first);
    listen(*second);
    listen(c);
    first->action = [&]
    {
        second.reset();
        first.reset();
    };
    EXPECT_EQ(fired(), "1c");
    EXPECT_EQ(fired(), "c");
}

TEST_F(coCallListTest, callback_added_while_firing_waits_for_the_next_firing)
{
    listen(a);
    a.action = [&]
    {
        a.action = nullptr;
        // Enough to move the entries in memory.
        for (int i = 0; i < 100; ++i)
            listen(i ? c : b);
    };
    listen(c);
    EXPECT_EQ(fired(), "ac");
    EXPECT_EQ(fired(), "acb" + std::string(99, 'c'));
}

TEST_F(coCallListTest, dropped_and_added_again_while_firing_waits_too)
{
    listen(a);
    listen(b);
    a.action = [&]
    {
        a.action = nullptr;
        list->remove(&b);
        listen(b);
    };
    EXPECT_EQ(fired(), "a");
    EXPECT_EQ(fired(), "ab");
    EXPECT_EQ(b.n_call_lists(), 1);
}

TEST_F(coCallListTest, firing_again_from_inside_sees_what_was_removed)
{
    listen(a);
    listen(b);
    listen(c);
    b.action = [&]
    {
        b.action = nullptr;
        list->fire(MOVED);
        list->remove(&a);
        list->fire(MOVED);
    };
    // Outer a, b; inner a b c; inner without a: b c; outer goes on with c.
    EXPECT_EQ(fired(), "ab"
                       "abc"
                       "bc"
                       "c");
    EXPECT_EQ(list->count(), 2);
}

TEST_F(coCallListTest, list_destroyed_from_inside_nested_firings_ends_them)
{
    listen(a);
    listen(b);
    listen(b, DELETED);
    listen(c, DELETED);
    a.action = [&] { list->fire(DELETED); };
    b.action = [&] { list.reset(); };
    log.clear();
    list->fire(MOVED);
    EXPECT_EQ(log, "ab");
    EXPECT_EQ(a.n_call_lists() + b.n_call_lists() + c.n_call_lists(), 0);
}

TEST_F(coCallListTest, copied_receiver_owns_no_callbacks)
{
    ArgumentListener original;
    list->add(MOVED, coCallFunc::member<&ArgumentListener::take>(&original));
    {
        ArgumentListener copy(original);
        EXPECT_EQ(copy.n_call_lists(), 0);
        copy = original;
        EXPECT_EQ(copy.n_call_lists(), 0);
    }
    EXPECT_EQ(list->count(), 1);
}
