#pragma once

#include "grToolFactory.h"
#include "grTwiddleTool.h"
#include "gwKeyEvent.h"
#include "utTypeID.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

/// What recording tools are asked, in order, and how they answer.
struct tsToolRecord
{
    std::vector<std::string> calls;
    int allow_key_event = 0;
    grIdleAction idle_answer = grIDLE_DONE;
    gwKeyEvent last_key;
    /// Run inside each call, with the call's name.
    std::function<void(const std::string&)> inside;

    std::vector<std::string> take() { return std::exchange(calls, {}); }
    void add(const std::string& call)
    {
        calls.push_back(call);
        if (inside)
            inside(call);
    }
};

/// A tool that records every call with the state that it is made in, and its start with its arguments.
class tsRecordingTool : public grTwiddleTool
{
public:
    tsRecordingTool(tsToolRecord& record, const utString& args) : grTwiddleTool(args, nullptr), the_record(record) {}
    ~tsRecordingTool() override { the_record.add("deleted"); }

    int allow_key_event_when_active(const gwKeyEvent&) const override
    {
        the_record.add("allow?");
        return the_record.allow_key_event;
    }
    void start_twiddle(const gwKeyEvent&) override { add("start " + args().str()); }
    void mouse_event(const gwMouseEvent&) override { add("mouse"); }
    void spaceball_event(const gwSpaceballEvent&) override { add("spaceball"); }
    grIdleAction idle_event() override
    {
        add("idle");
        return the_record.idle_answer;
    }
    void final_frame() override { add("final frame"); }
    void end_twiddle(const gwKeyEvent& event) override
    {
        the_record.last_key = event;
        add("end");
    }
    void destruction_twiddle() override { add("destruction"); }

    static const utTypeID& ut_static_type()
    {
        static const utTypeID type("tsRecordingTool", grTwiddleTool::ut_static_type());
        return type;
    }
    const utTypeID& ut_dynamic_type() const override { return ut_static_type(); }
    int ut_is_kind_of(const utTypeID& type) const override { return ut_static_type().is_kind_of(type); }

private:
    // Each call is recorded with the state it is made in.
    void add(const std::string& call) { the_record.add(call + " in " + std::to_string(state())); }

    tsToolRecord& the_record;
};

/// A factory of recording tools under one name; their number is 7.
class tsRecordingFactory : public grToolFactory
{
public:
    explicit tsRecordingFactory(tsToolRecord& record, const utString& name = "record")
        : the_record(record), the_name(name)
    {}

    int identify_tool(utString name) const override { return name == the_name ? 7 : -1; }
    grTwiddleTool* create_tool(int tool, const utString& args) const override
    {
        return tool == 7 ? new tsRecordingTool(the_record, args) : nullptr;
    }

private:
    tsToolRecord& the_record;
    utString the_name;
};
