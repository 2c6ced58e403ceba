#pragma once

#include <utility>

// How a GxClonePtr copies and releases its object. The default copies a
// polymorphic object through its virtual Clone() and deletes it.
template <class T>
struct GxCloneByMethod {
    static T* Copy(const T& object) { return object.Clone(); }
    static void Release(T* object) { delete object; }
};

// For a class without Clone(): its copy constructor.
template <class T>
struct GxCopyConstructed {
    static T* Copy(const T& object) { return new T(object); }
    static void Release(T* object) { delete object; }
};

// Owns one object, or none, through a pointer; a copy of the holder owns a
// copy of the object, made by the policy. A class whose members are such
// holders and plain values copies with its implicit copy constructor: no
// hand-written list of members to keep in step with the class.
// Copy assignment copies first and then exchanges, so a failed copy leaves
// the holder as it was; assigned to itself it keeps its object. The size is
// one pointer.
template <class T, class Policy = GxCloneByMethod<T>>
class GxClonePtr {
public:
    GxClonePtr() noexcept = default;
    // Takes ownership of object, which may be null.
    explicit GxClonePtr(T* object) noexcept : ptr(object) {}
    GxClonePtr(const GxClonePtr& other) : ptr(other.ptr ? Policy::Copy(*other.ptr) : nullptr) {}
    GxClonePtr(GxClonePtr&& other) noexcept : ptr(other.release()) {}
    GxClonePtr& operator=(const GxClonePtr& other) {
        if (this != &other) {
            GxClonePtr copy(other);
            swap(copy);
        }
        return *this;
    }
    GxClonePtr& operator=(GxClonePtr&& other) noexcept {
        GxClonePtr taken(std::move(other));
        swap(taken);
        return *this;
    }
    ~GxClonePtr() {
        if (ptr) Policy::Release(ptr);
    }

    // Releases the object held and takes ownership of object.
    void reset(T* object = nullptr) noexcept {
        GxClonePtr old(object);
        swap(old);
    }
    // Gives up ownership without releasing the object.
    T* release() noexcept {
        T* object = ptr;
        ptr = nullptr;
        return object;
    }
    void swap(GxClonePtr& other) noexcept { std::swap(ptr, other.ptr); }

    T* get() const noexcept { return ptr; }
    T* operator->() const noexcept { return ptr; }
    T& operator*() const noexcept { return *ptr; }
    explicit operator bool() const noexcept { return ptr != nullptr; }

private:
    T* ptr = nullptr;
};
