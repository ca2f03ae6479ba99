#pragma once

#include "giVector3.h"
#include "tsStage.h"

/// What a command's function takes, from the command's next words: numbers and enumerators, points and boxes (x0 y0 x1
/// y1), words, live views and their companions; a window by its number, the first one where that is missing.
template <class Value>
Value ts_read(tsArguments& in)
{
    using Plain = std::remove_cvref_t<Value>;
    if constexpr (std::is_same_v<Plain, tsArguments>)
        return in;
    else if constexpr (std::is_same_v<Plain, dgView>)
        return in.view();
    else if constexpr (std::is_same_v<Plain, grView>)
        return in.companion();
    else if constexpr (std::is_same_v<Plain, tsStage::Window>)
        return in.window();
    else if constexpr (std::is_same_v<Plain, tsViews>)
        return in.views();
    else if constexpr (std::is_same_v<Plain, std::string>)
        return in.word();
    else if constexpr (std::is_same_v<Plain, tsRest>)
        return {in.rest()};
    else if constexpr (std::is_same_v<Plain, giPoint3> || std::is_same_v<Plain, giVector3>)
    {
        const double x = in.number(), y = in.number();
        return Plain(x, y, in.number());
    }
    else if constexpr (std::is_same_v<Plain, giBox2>)
    {
        const double x0 = in.number(), y0 = in.number(), x1 = in.number();
        return giBox2(x0, y0, x1, in.number());
    }
    else if constexpr (requires { Plain::fallback; })
        return {in.more() ? static_cast<decltype(Plain::value)>(in.number()) : Plain::fallback};
    else if constexpr (std::is_enum_v<Plain>)
        return static_cast<Plain>(in.integer());
    else
        return static_cast<Plain>(in.number());
}

/// What a command holds of an argument while it runs.
template <class Value>
using tsHeld = std::conditional_t<std::is_const_v<std::remove_reference_t<Value>>, std::remove_cvref_t<Value>, Value>;

/// Carries out a function with what it takes, and notes what it answers.
template <class Result, class... Arguments>
void ts_carry_out(tsStage& stage, const std::function<Result(Arguments...)>& function, tsArguments& in)
{
    std::tuple<tsHeld<Arguments>...> values{ts_read<tsHeld<Arguments>>(in)...};
    if constexpr (std::is_void_v<Result>)
        std::apply(function, values);
    else if constexpr (std::is_arithmetic_v<Result>)
        stage.note_values({static_cast<double>(std::apply(function, values))});
    else if constexpr (std::is_convertible_v<Result, std::string>)
        stage.note(std::apply(function, values));
    else if constexpr (std::is_same_v<Result, giPoint3>)
    {
        const giPoint3 point = std::apply(function, values);
        stage.note_values({point.x(), point.y(), point.z()});
    }
    else
        stage.note_values(std::apply(function, values));
}

template <class Function>
void tsNewCommand::operator=(Function function)
{
    stage.the_commands[name] = [&stage = stage, function = std::function(function)](tsArguments& in)
    { ts_carry_out(stage, function, in); };
}

/// Some of a stage's commands with what they work on.
class tsPart
{
public:
    explicit tsPart(tsStage& stage) : the_stage(stage) {}

protected:
    tsNewCommand on(const std::string& name) { return the_stage.on(name); }
    tsStage& the_stage;
};
