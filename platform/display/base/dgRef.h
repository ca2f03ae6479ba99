#pragma once

#include <utility>

/// A pointer to a counted object that raises the count while it holds it.
template <class T>
class dgRef
{
public:
    dgRef() = default;
    dgRef(T* object) : the_object(object)
    {
        if (the_object)
            the_object->reference();
    }
    dgRef(const dgRef& other) : dgRef(other.the_object) {}
    dgRef(dgRef&& other) noexcept : the_object(std::exchange(other.the_object, nullptr)) {}
    ~dgRef() { reset(); }

    dgRef& operator=(dgRef other) noexcept
    {
        std::swap(the_object, other.the_object);
        return *this;
    }

    void reset()
    {
        if (T* object = std::exchange(the_object, nullptr))
            object->unreference();
    }

    T* get() const { return the_object; }
    T* operator->() const { return the_object; }
    T& operator*() const { return *the_object; }
    explicit operator bool() const { return the_object != nullptr; }

private:
    T* the_object = nullptr;
};

/// A reference that keeps an object which others count too. One that nobody counts is its owner's to keep, and stays as
/// it is: the reference is empty.
template <class T>
dgRef<T> dg_hold(const T& object)
{
    return dgRef<T>(object.reference_count() > 0 ? const_cast<T*>(&object) : nullptr);
}
