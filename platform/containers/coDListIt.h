#pragma once

/// Walk along a coDList in either direction:
///     for (auto it = list.it(); it; ++it)
///         use(it());
/// remove() takes the element out of the list and leaves the walk between its neighbours, so that ++ goes to the one
/// behind and -- to the one before. Elements added or removed by others never make the walk leave the list, but it may
/// meet one twice or pass one over.
template <class List>
class coDListIt
{
public:
    coDListIt(List& list, int position) : the_list(&list), the_position(position) {}

    /// Whether the walk stands on an element.
    explicit operator bool() const { return valid(); }
    int valid() const { return !the_removed && the_position >= 0 && the_position < the_list->count(); }

    /// The element stood on; only while valid.
    auto& operator()() const { return (*the_list)[the_position]; }
    auto& operator*() const { return (*the_list)[the_position]; }
    int position() const { return the_position; }

    coDListIt& operator++()
    {
        the_position += the_removed ? 0 : 1;
        the_removed = false;
        return *this;
    }
    coDListIt& operator--()
    {
        --the_position;
        the_removed = false;
        return *this;
    }
    void remove()
    {
        the_list->remove_at(the_position);
        the_removed = true;
    }

private:
    List* the_list;
    int the_position;
    bool the_removed = false; // the element at the_position is the one behind the removed one
};
