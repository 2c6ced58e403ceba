#include <gtest/gtest.h>
#include <sys/resource.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include "foundation/Matrix.h"

// Under AddressSanitizer a refused allocation must come back as null, as it
// does without the sanitizer, instead of ending the test program.
extern "C" __attribute__((visibility("default"), used)) const char* __asan_default_options() {
    return "allocator_may_return_null=1";
}

namespace {

constexpr double kEps = 1e-15;

// Rows top to bottom of a 3 x 3 matrix, element (j, k) at row k, column j.
void ExpectRows(const CMatrix& m, const double (&rows)[3][3], double tolerance) {
    ASSERT_EQ(m.GetSizeJ(), 3);
    ASSERT_EQ(m.GetSizeK(), 3);
    for (int k = 0; k < 3; ++k)
        for (int j = 0; j < 3; ++j) EXPECT_NEAR(m(j, k), rows[k][j], tolerance) << j << "," << k;
}

void ExpectVector(const CMatrix& v, double x, double y, double z, double tolerance) {
    ASSERT_EQ(v.GetSizeJ(), 1);
    ASSERT_EQ(v.GetSizeK(), 3);
    EXPECT_NEAR(v(0, 0), x, tolerance);
    EXPECT_NEAR(v(0, 1), y, tolerance);
    EXPECT_NEAR(v(0, 2), z, tolerance);
}

CMatrix FromRows(std::int32_t cols, std::int32_t rows, const double* values) {
    CGxArray2D<double> a;
    a.Resize(cols, rows);
    for (std::int32_t k = 0; k < rows; ++k)
        for (std::int32_t j = 0; j < cols; ++j) a.SetElement(j, k, values[k * cols + j]);
    return CMatrix(&a);
}

}  // namespace

TEST(Matrix, VectorIsOneColumnOfThreeRows) {
    CMatrix v(1.5, -2, 7);
    ExpectVector(v, 1.5, -2, 7, 0);
    // Reading across the column, or past the last row, is outside the bounds.
    EXPECT_TRUE(std::isnan(v(1, 0)));
    EXPECT_TRUE(std::isnan(v.GetElement(0, 3)));
    EXPECT_TRUE(std::isnan(v.GetElement(-1, 0)));
    EXPECT_FALSE(v.SetElement(0, 3, 1.0));
    EXPECT_TRUE(v.SetElement(0, 2, 8.0));
    EXPECT_EQ(v(0, 2), 8.0);
}

TEST(Matrix, RotationsTurnAnticlockwiseAboutTheirAxis) {
    // A quarter turn about z carries x to y, about x carries y to z, about y
    // carries z to x.
    ExpectVector(CMatrix(90, CMatrix::eRotationZ) * CMatrix(1, 0, 0), 0, 1, 0, kEps);
    ExpectVector(CMatrix(90, CMatrix::eRotationX) * CMatrix(0, 1, 0), 0, 0, 1, kEps);
    ExpectVector(CMatrix(90, CMatrix::eRotationY) * CMatrix(0, 0, 1), 1, 0, 0, kEps);
    const double c = std::cos(0.5), s = std::sin(0.5);  // 28.6478... degrees
    const double deg = 0.5 * 180 / 3.141592653589793;
    ExpectRows(CMatrix(deg, CMatrix::eRotationX), {{1, 0, 0}, {0, c, -s}, {0, s, c}}, kEps);
    ExpectRows(CMatrix(deg, CMatrix::eRotationY), {{c, 0, s}, {0, 1, 0}, {-s, 0, c}}, kEps);
    ExpectRows(CMatrix(deg, CMatrix::eRotationZ), {{c, -s, 0}, {s, c, 0}, {0, 0, 1}}, kEps);
}

TEST(Matrix, UnknownAxisGivesZeros) {
    ExpectRows(CMatrix(30, static_cast<CMatrix::ERotationType>(4)),
               {{0, 0, 0}, {0, 0, 0}, {0, 0, 0}}, 0);
}

TEST(Matrix, RotationByMinusAngleUndoesIt) {
    const double identity[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    for (auto axis : {CMatrix::eRotationX, CMatrix::eRotationY, CMatrix::eRotationZ}) {
        for (double a : {12.5, -97.0, 179.0, 1234.5}) {
            ExpectRows(CMatrix(a, axis) * CMatrix(-a, axis), identity, 1e-15);
        }
    }
}

TEST(Matrix, ProductsApplyRightFactorFirst) {
    // Turning (1000, 2000, 3000) by -50 degrees about y, then 30 degrees about
    // z, and 12.5 degrees about x alone, by exact Helmert rotations:
    //   echo "1000 2000 3000 0" | cct -d 10 +proj=pipeline
    //     +step +proj=helmert +ry=-180000 +exact +convention=position_vector
    //     +step +proj=helmert +rz=108000 +exact +convention=position_vector
    //   -> -2433.5714452804  904.3779477337  2694.4072721786
    //   echo "1000 2000 3000 0" | cct -d 10 +proj=helmert +rx=45000 +exact
    //     +convention=position_vector
    //   -> 1000.0000000000  1303.2731724256  3361.7672492360
    const CMatrix v(1000, 2000, 3000);
    const CMatrix both = CMatrix(30, CMatrix::eRotationZ) * CMatrix(-50, CMatrix::eRotationY);
    ExpectVector(both * v, -2433.5714452804, 904.3779477337, 2694.4072721786, 1e-9);
    ExpectVector(CMatrix(12.5, CMatrix::eRotationX) * v, 1000, 1303.2731724256, 3361.7672492360,
                 1e-9);

    double out[3];
    const double in[3] = {1000, 2000, 3000};
    ASSERT_TRUE(both.Transform(in, out));
    EXPECT_NEAR(out[0], -2433.5714452804, 1e-9);
    EXPECT_NEAR(out[1], 904.3779477337, 1e-9);
    EXPECT_NEAR(out[2], 2694.4072721786, 1e-9);
    EXPECT_FALSE(v.Transform(in, out));
    EXPECT_TRUE(std::isnan(out[0]));
}

TEST(Matrix, NonSquareProductShapes) {
    // (2 x 3) times (3 x 2): rows of the left, columns of the right.
    const double left[] = {1, 2, 3, 4, 5, 6};
    const double right[] = {7, 8, 9, 10, 11, 12};
    const CMatrix p = FromRows(3, 2, left) * FromRows(2, 3, right);
    ASSERT_EQ(p.GetSizeK(), 2);
    ASSERT_EQ(p.GetSizeJ(), 2);
    EXPECT_EQ(p(0, 0), 58.0);
    EXPECT_EQ(p(1, 0), 64.0);
    EXPECT_EQ(p(0, 1), 139.0);
    EXPECT_EQ(p(1, 1), 154.0);

    // A right operand with too few rows is read outside its bounds: the
    // product is NaN, never a read past the storage.
    const CMatrix bad = FromRows(3, 2, left) * FromRows(2, 2, right);
    ASSERT_EQ(bad.GetSizeK(), 2);
    EXPECT_TRUE(std::isnan(bad(0, 0)));
    // Empty operands give an empty product.
    EXPECT_EQ((CMatrix() * CMatrix(1, 2, 3)).GetSizeK(), 0);
}

TEST(Matrix, SumsDifferencesAndScaling) {
    const CMatrix a(1, 2, 3), b(0.5, -4, 10);
    ExpectVector(a + b, 1.5, -2, 13, 0);
    ExpectVector(a - b, 0.5, 6, -7, 0);
    ExpectVector(a * -2.0, -2, -4, -6, 0);
    // Shapes that differ have no element-wise sum.
    const CMatrix r(10, CMatrix::eRotationZ);
    EXPECT_EQ((a + r).GetSizeJ(), 0);
    EXPECT_EQ((a - r).GetSizeK(), 0);
    EXPECT_TRUE((r - r)(0, 0) == 0.0);
}

TEST(Matrix, CopiesAreIndependent) {
    CMatrix a(1, 2, 3);
    CMatrix b(a);
    b.SetElement(0, 0, 99);
    EXPECT_EQ(a(0, 0), 1.0);
    CMatrix c;
    c = a;
    c.SetElement(0, 1, 98);
    EXPECT_EQ(a(0, 1), 2.0);
    c = c;
    EXPECT_EQ(c(0, 1), 98.0);
    c = CMatrix();
    EXPECT_EQ(c.GetSizeK(), 0);
    EXPECT_TRUE(CMatrix(static_cast<const CGxArray2D<double>*>(nullptr)).GetArray().IsEmpty());
}

TEST(Array2D, ColumnIndexRunsFastestFromTheLowerBounds) {
    CGxArray2D<double> a;
    ASSERT_TRUE(a.Resize(3, 2, -1, 5));
    EXPECT_EQ(a.GetCount(), 6u);
    EXPECT_EQ(a.GetJBase(), -1);
    EXPECT_EQ(a.GetJLast(), 1);
    EXPECT_EQ(a.GetKBase(), 5);
    EXPECT_EQ(a.GetKLast(), 6);
    for (std::int32_t k = 5; k <= 6; ++k)
        for (std::int32_t j = -1; j <= 1; ++j) EXPECT_TRUE(a.SetElement(j, k, 10 * k + j));
    const double expected[] = {49, 50, 51, 59, 60, 61};
    for (int i = 0; i < 6; ++i) EXPECT_EQ(a.GetData()[i], expected[i]);
    EXPECT_EQ(a.At(1, 6), a.GetData() + 5);
    EXPECT_EQ(a.At(2, 6), nullptr);
    EXPECT_EQ(a.At(-1, 4), nullptr);
    EXPECT_TRUE(std::isnan(a.GetElement(-2, 5)));
    EXPECT_FALSE(a.SetElement(0, 7, 1.0));
}

TEST(Array2D, RefusedShapesLeaveItEmpty) {
    CGxArray2D<double> a;
    const std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
    const struct {
        std::int32_t sizeJ, sizeK, jBase, kBase;
    } refused[] = {
        {0, 3, 0, 0},          // no columns
        {3, -1, 0, 0},         // negative rows
        {65536, 65536, 0, 0},  // 2^32 elements: the count does not fit
        {2, 2, kMax, 0},       // last column index past the 32-bit range
        {2, 2, 0, kMax},       // last row index past it
    };
    for (const auto& r : refused) {
        ASSERT_TRUE(a.Resize(2, 2));
        EXPECT_FALSE(a.Resize(r.sizeJ, r.sizeK, r.jBase, r.kBase));
        EXPECT_EQ(a.GetData(), nullptr);
        EXPECT_EQ(a.GetCount(), 0u);
        EXPECT_EQ(a.GetSizeJ(), 0);
        EXPECT_EQ(a.GetSizeK(), 0);
        EXPECT_TRUE(std::isnan(a.GetElement(0, 0)));
    }
    // The largest bounds that fit are fine.
    EXPECT_TRUE(a.Resize(1, 2, kMax, kMax - 1));
    EXPECT_TRUE(a.SetElement(kMax, kMax, 3.0));
}

namespace {

// Caps the process's address space just above what it already uses and asks
// for 2^32 - 1 doubles (32 GiB); exits 0 when the array refused and emptied.
[[noreturn]] void ResizeBeyondAddressSpace() {
    long pages = 0;
    if (std::FILE* f = std::fopen("/proc/self/statm", "r")) {
        if (std::fscanf(f, "%ld", &pages) != 1) pages = 0;
        std::fclose(f);
    }
    const rlim_t cap = rlim_t(pages) * 4096 + (rlim_t(256) << 20);
    rlimit limit;
    limit.rlim_cur = cap;
    limit.rlim_max = cap;
    if (pages == 0 || setrlimit(RLIMIT_AS, &limit) != 0) std::_Exit(2);
    CGxArray2D<double> a;
    a.Resize(2, 2);
    const bool refused = !a.Resize(65535, 65537);
    std::_Exit(refused && a.GetData() == nullptr && a.GetCount() == 0 ? 0 : 1);
}

}  // namespace

TEST(Array2DDeathTest, FailedAllocationEmpties) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(ResizeBeyondAddressSpace(), testing::ExitedWithCode(0), "");
}

TEST(Array2D, ViewsShareStorageAndNeverFreeIt) {
    CGxArray2D<double> owner;
    ASSERT_TRUE(owner.Resize(2, 2, 1, 1));
    CGxArray2D<double> view = owner.MakeView();
    EXPECT_TRUE(view.IsView());
    EXPECT_FALSE(owner.IsView());
    EXPECT_EQ(view.GetData(), owner.GetData());
    EXPECT_EQ(view.GetKLast(), 2);
    view.SetElement(2, 2, 4.5);
    EXPECT_EQ(owner.GetElement(2, 2), 4.5);
    {
        // Copies of a view are views of the same storage; letting them go
        // frees nothing (the sanitizer build would see a double free).
        CGxArray2D<double> copy(view);
        CGxArray2D<double> assigned;
        assigned = view;
        EXPECT_TRUE(copy.IsView());
        EXPECT_EQ(assigned.GetData(), owner.GetData());
    }
    EXPECT_EQ(owner.GetElement(2, 2), 4.5);

    // Copies of an owner own new storage.
    CGxArray2D<double> deep(owner);
    EXPECT_FALSE(deep.IsView());
    EXPECT_NE(deep.GetData(), owner.GetData());
    EXPECT_EQ(deep.GetElement(2, 2), 4.5);

    // Assigning to a view of the same count writes through to the owner.
    CGxArray2D<double> source;
    source.Resize(4, 1);
    for (int j = 0; j < 4; ++j) source.SetElement(j, 0, j + 0.25);
    view = source;
    EXPECT_TRUE(view.IsView());
    EXPECT_EQ(view.GetSizeJ(), 4);
    EXPECT_EQ(owner.GetElement(2, 2), 3.25);

    // A different count would overrun the viewed storage: the view lets go of
    // it and becomes a copy, leaving the owner as it was.
    CGxArray2D<double> bigger;
    bigger.Resize(3, 3);
    view = bigger;
    EXPECT_FALSE(view.IsView());
    EXPECT_NE(view.GetData(), owner.GetData());
    EXPECT_EQ(owner.GetElement(2, 2), 3.25);

    // Self-assignment leaves both kinds alone.
    CGxArray2D<double> again = owner.MakeView();
    again = again;
    owner = owner;
    EXPECT_EQ(again.GetData(), owner.GetData());
    EXPECT_EQ(owner.GetElement(1, 1), 0.25);

    // Resizing a view lets go of the viewed storage and owns the new one.
    again.Resize(5, 5);
    EXPECT_FALSE(again.IsView());
    EXPECT_EQ(owner.GetCount(), 4u);
}

TEST(Array2D, ViewOfCallerStorage) {
    double storage[6] = {1, 2, 3, 4, 5, 6};
    CGxArray2D<double> view;
    ASSERT_TRUE(view.SetView(storage, 3, 2));
    EXPECT_EQ(view.GetElement(2, 1), 6.0);
    EXPECT_FALSE(view.SetView(nullptr, 3, 2));
    EXPECT_EQ(view.GetCount(), 0u);
    // A matrix built from a view stays a view: a product through it reads the
    // caller's numbers as they are now.
    ASSERT_TRUE(view.SetView(storage, 1, 3));
    const CMatrix m(&view);
    storage[1] = 20;
    ExpectVector(CMatrix(90, CMatrix::eRotationZ) * m, -20, 1, 3, 1e-14);
}
