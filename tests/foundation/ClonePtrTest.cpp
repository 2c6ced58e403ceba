// The clone-on-copy holder: every copy owns its own object, every object is
// released exactly once, and a copy that fails leaves the assigned holder as
// it was.

#include <gtest/gtest.h>

#include <new>
#include <utility>

#include "foundation/ClonePtr.h"

namespace {

int live = 0;           // objects alive
bool failNext = false;  // the next Clone throws

struct Shape {
    explicit Shape(int id_) : id(id_) { ++live; }
    Shape(const Shape& other) : id(other.id) { ++live; }
    virtual ~Shape() { --live; }
    virtual Shape* Clone() const {
        if (failNext) throw std::bad_alloc();
        return new Shape(*this);
    }
    int id;
};

using Holder = GxClonePtr<Shape>;

}  // namespace

TEST(ClonePtr, CopiesOwnTheirObjectsAndReleaseThemOnce) {
    live = 0;
    {
        Holder a(new Shape(1));
        Holder b(a);
        Holder c;
        c = a;
        EXPECT_EQ(live, 3);
        EXPECT_NE(a.get(), b.get());
        EXPECT_NE(a.get(), c.get());
        EXPECT_EQ(c->id, 1);

        Holder empty;
        c = empty;  // releases c's object
        EXPECT_FALSE(c);
        EXPECT_EQ(live, 2);

        Holder moved(std::move(b));
        EXPECT_FALSE(b);
        EXPECT_EQ(live, 2);
        moved.reset(new Shape(2));
        EXPECT_EQ(moved->id, 2);
        EXPECT_EQ(live, 2);

        Shape* const kept = a.get();
        const Holder& self = a;
        a = self;  // self-assignment keeps the very object
        EXPECT_EQ(a.get(), kept);
        EXPECT_EQ(live, 2);
    }
    EXPECT_EQ(live, 0);
}

TEST(ClonePtr, FailedCopyLeavesTheHolderAsItWas) {
    live = 0;
    {
        Holder a(new Shape(1));
        Holder b(new Shape(2));
        Shape* const before = b.get();
        failNext = true;
        EXPECT_THROW(b = a, std::bad_alloc);
        EXPECT_THROW(Holder c(a), std::bad_alloc);
        failNext = false;
        EXPECT_EQ(b.get(), before);
        EXPECT_EQ(b->id, 2);
        EXPECT_EQ(live, 2);
    }
    EXPECT_EQ(live, 0);
}
