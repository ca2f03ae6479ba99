#pragma once

#include "grExport.h"
#include "grTokeniser.h"
#include "gwTypes.h"

#include <memory>
#include <string>

class grAction;

/// Reads the actions of a text one after another, up to the first thing that is wrong, which it names.
///
/// One action is
///     <modifiers> key_type key : tool_name (arguments)
/// where the groups in "<>" and "()" may be left out, and tokens are separated by blanks, commas or tabs. The words are
/// those of grStringConverter; key is a decimal number, or a word of to_other_key when key_type is "other_key". The end
/// of a line is no separator: texts of several lines are joined first, see gwJoinedText.
class GR_EXPORT grActionReader
{
public:
    /// Copies the text.
    explicit grActionReader(const utString& text);
    ~grActionReader();

    /// The next action; null at the end of the text, and from the first fault on.
    std::unique_ptr<grAction> next();
    /// Position in the text, from 0, of the name of the tool of the last action.
    int tool_position() const { return the_tool_position; }

    int failed() const { return !the_complaint.empty(); }
    /// Of the fault: its position in the text, from 0 to the length, and a sentence without an end mark. Both say
    /// nothing before there is one.
    int fault_position() const { return the_fault_position; }
    const std::string& complaint() const { return the_complaint; }

protected:
    grActionReader(const grActionReader&) = delete;
    grActionReader& operator=(const grActionReader&) = delete;

private:
    void step();
    bool is(const char* token) const;
    bool is_tool_name() const;
    std::string found() const;
    bool fault(const std::string& complaint);
    bool fault_at(int position, const std::string& complaint);
    bool read_modifiers(int& modifiers);
    bool read_key(gwKeyType& type, int& number);
    bool read_tool_name(utString& name);
    bool read_arguments(utString& arguments);

    grTokeniser the_tokens;
    int the_end;
    const char* the_token = nullptr; // null at the end of the text
    int the_position = 0;            // of the token
    int the_tool_position = 0;
    int the_fault_position = 0;
    std::string the_complaint;
};
