#include "coCallList.h"

#include "tsTable.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>

namespace
{
enum
{
    MOVED = 1,
    DELETED = 2
};

class Player;

// Writes its name at each call, then plays what is to happen inside the next one.
class Listener : public coReceiver
{
public:
    Listener(char name, Player& player) : the_name(name), the_player(player) {}
    coCallFunc call() { return coCallFunc::member<&Listener::called>(this); }
    std::string inside;

private:
    void called();
    char the_name;
    Player& the_player;
};

// Plays a script on one call list and the listeners a, b and c:
//     a  a'  9a  listen for the first reason, for the second one, nine times    /a  stop for the first reason
//     a{...}     what a does inside its next call                               =a  drop one callback by its value
//     !  !'      fire one of the reasons                                        -a  drop all callbacks    ~a  destroy
//     x          destroy the list
class Player
{
public:
    Player()
    {
        for (const char name : {'a', 'b', 'c'})
            listeners[name] = std::make_unique<Listener>(name, *this);
    }
    void play(std::string_view script)
    {
        int times = 1;
        while (!script.empty())
        {
            const char c = take(script);
            if (c >= '1' && c <= '9')
                times = c - '0';
            else if (c == '!')
                list->fire(reason(script));
            else if (c == 'x')
                list.reset();
            else if (c == '/')
                list->remove(MOVED, at(script));
            else if (c == '=')
                list->remove(MOVED, at(script)->call());
            else if (c == '-')
                at(script)->clear_callbacks();
            else if (c == '~')
                listeners[take(script)].reset();
            else if (c != ' ' && script.starts_with('{'))
            {
                listeners[c]->inside = script.substr(1, script.find('}') - 1);
                script.remove_prefix(script.find('}') + 1);
            }
            else if (c != ' ')
            {
                const int why = reason(script);
                for (; times > 0; --times)
                    list->add(why, listeners[c]->call());
                times = 1;
            }
        }
    }

    std::string log;
    std::unique_ptr<coCallList> list = std::make_unique<coCallList>(nullptr);
    std::map<char, std::unique_ptr<Listener>> listeners;

private:
    static char take(std::string_view& script)
    {
        const char c = script.front();
        script.remove_prefix(1);
        return c;
    }
    static int reason(std::string_view& script) { return script.starts_with('\'') ? take(script), DELETED : MOVED; }
    Listener* at(std::string_view& script) { return listeners[take(script)].get(); }
};

void Listener::called()
{
    // What is played may destroy this listener.
    Player& player = the_player;
    player.log += the_name;
    player.play(std::exchange(inside, ""));
}

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

TEST(coCallList, plays_scripts)
{
    for (const auto& row : ts_table(TS_TABLES "call_list.table", "call_list"))
    {
        Player player;
        player.play(row[1]);
        EXPECT_EQ(player.log, row[2]) << row[0];
        EXPECT_EQ(player.list ? player.list->count() : 0, std::stoi(row[3])) << row[0];
        // Nobody remembers a list that has none of its callbacks.
        player.list.reset();
        for (const auto& [name, listener] : player.listeners)
            EXPECT_EQ(listener ? listener->n_call_lists() : 0, 0) << row[0] << ' ' << name;
    }
}

TEST(coCallList, hands_over_sender_and_data_to_receivers_that_own_their_callbacks)
{
    int sender = 0, data = 42, calls = 0;
    coCallList list(&sender);
    ArgumentListener listener;
    list.add(MOVED, coCallFunc::member<&ArgumentListener::take>(&listener));
    {
        ArgumentListener copy(listener);
        copy = listener;
        EXPECT_EQ(copy.n_call_lists(), 0) << "a copy owns none";
    }
    EXPECT_EQ(list.count(), 1);
    list.fire(MOVED, &data);
    EXPECT_EQ(listener.sender, &sender);
    EXPECT_EQ(listener.value, 42);
    list.add(DELETED, nullptr, [](coReceiver*, void*, void* count) { ++*static_cast<int*>(count); });
    list.fire(DELETED, &calls);
    EXPECT_EQ(calls, 1) << "a plain function needs no receiver";
    list.remove(MOVED, &listener);
    EXPECT_EQ(listener.n_call_lists(), 0) << "a list without callbacks is forgotten";
}
