#pragma once

#include <cstdint>

#include "foundation/GxExport.h"

// Small dense matrices of doubles, used to build 3 x 3 rotations and apply them
// to Earth-centred 3-vectors (rotated-pole grids).

// The interface every array of the library offers, whatever its element type.
class GXCART_API CGxArrayBase {
public:
    virtual ~CGxArrayBase();
    // Number of elements the array refers to.
    virtual std::uint32_t GetCount() const = 0;
    // True when the storage belongs to someone else.
    virtual bool IsView() const = 0;
    bool IsEmpty() const { return GetCount() == 0; }
};

// A two-dimensional array with adjustable lower bounds. j is the column index
// and runs fastest: element (j, k) lives at
// data[(k - kBase) * sizeJ + (j - jBase)].
//
// Ownership:
// - An owning array allocates its storage in Resize and frees it in its
//   destructor. Copying an owning array copies its elements into new storage.
// - A view (SetView, MakeView) refers to storage that someone else owns and
//   never frees it. Copying a view gives another view of the same storage, so
//   no storage is ever freed twice; a view must not outlive the storage it
//   refers to.
// - Assigning to a view writes the source's elements through into the viewed
//   storage (the owner sees them) when the element counts agree. When they do
//   not, writing through would run past the viewed storage, so the target
//   stops being a view and becomes a copy of the source instead; the storage
//   it viewed is left untouched.
//
// Every indexed access is checked against the bounds: reads outside them give
// NaN (for double) and writes outside them are refused.
template <class T>
class GXCART_API CGxArray2D : public CGxArrayBase {
public:
    // An empty array: no storage, all sizes 0.
    CGxArray2D();
    CGxArray2D(const CGxArray2D& other);
    CGxArray2D& operator=(const CGxArray2D& other);
    ~CGxArray2D() override;

    std::uint32_t GetCount() const override { return count; }
    bool IsView() const override { return isView; }

    // Allocates sizeJ x sizeK value-initialised elements with the given lower
    // bounds, dropping (or, for a view, letting go of) the previous storage;
    // the array owns the new storage. Returns false and leaves the array empty
    // when a size is not positive, the bounds overflow 32 bits, the count
    // exceeds 32 bits or the allocation fails.
    bool Resize(std::int32_t sizeJ, std::int32_t sizeK, std::int32_t jBase = 0,
                std::int32_t kBase = 0);

    // Makes this array a view of storage owned by the caller, which must hold
    // at least sizeJ x sizeK elements and outlive the view. Returns false and
    // leaves the array empty for a null pointer or sizes Resize would refuse.
    bool SetView(T* storage, std::int32_t sizeJ, std::int32_t sizeK, std::int32_t jBase = 0,
                 std::int32_t kBase = 0);
    // A view of this array's storage with its shape and bounds.
    CGxArray2D MakeView();

    // Address of element (j, k), or null outside the bounds.
    T* At(std::int32_t j, std::int32_t k);
    const T* At(std::int32_t j, std::int32_t k) const;
    // Element (j, k); NaN (a value-initialised T for other types) outside the
    // bounds.
    T GetElement(std::int32_t j, std::int32_t k) const;
    // Writes element (j, k); false (and nothing written) outside the bounds.
    bool SetElement(std::int32_t j, std::int32_t k, const T& value);

    std::int32_t GetSizeJ() const { return sizeJ; }
    std::int32_t GetSizeK() const { return sizeK; }
    std::int32_t GetJBase() const { return jBase; }
    std::int32_t GetJLast() const { return jLast; }
    std::int32_t GetKBase() const { return kBase; }
    std::int32_t GetKLast() const { return kLast; }
    // The storage, row after row; null when empty.
    T* GetData() { return data; }
    const T* GetData() const { return data; }

private:
    void _dealloc();
    void _empty();
    void _setShape(std::int32_t sizeJ, std::int32_t sizeK, std::int32_t jBase, std::int32_t kBase,
                   std::uint32_t count);
    void _copy(const CGxArray2D& other);

    T* data;
    std::uint32_t count;
    bool isView;
    std::int32_t jBase, jLast, sizeJ;
    std::int32_t kBase, kLast, sizeK;
};

extern template class CGxArray2D<double>;

// A dense matrix of doubles over a CGxArray2D<double>. Rows are indexed by k,
// columns by j, both from 0 for the matrices built here; a 3-vector is one
// column of three rows.
class GXCART_API CMatrix {
public:
    // Rotation about the first (x), second (y) or third (z) axis.
    enum ERotationType {
        eRotationX = 1,
        eRotationY = 2,
        eRotationZ = 3,
    };

    // An empty matrix.
    CMatrix();
    // The column vector (x, y, z).
    CMatrix(double x, double y, double z);
    // The right-handed rotation by angle (degrees) about the given axis, which
    // turns a vector anticlockwise seen from the positive axis. Any other axis
    // number gives a 3 x 3 matrix of zeros.
    CMatrix(double angle, ERotationType type);
    // A copy of the array (shape, bounds and elements; a view stays a view of
    // the same storage). A null pointer gives an empty matrix.
    explicit CMatrix(const CGxArray2D<double>* array);
    CMatrix(const CMatrix& other);
    CMatrix& operator=(const CMatrix& other);
    virtual ~CMatrix();

    // Product: rows of this matrix by columns of the right one; element (r, c)
    // sums this(r, m) * right(m, c) over this matrix's columns m. The right
    // operand's row count is not checked: missing rows read as NaN, so a
    // mismatched product is NaN where it is undefined.
    CMatrix operator*(const CMatrix& right) const;
    CMatrix operator*(double factor) const;
    // Element-wise sum and difference; an empty matrix when the shapes differ.
    CMatrix operator+(const CMatrix& right) const;
    CMatrix operator-(const CMatrix& right) const;

    // Element at column j, row k; NaN outside the bounds.
    double GetElement(std::int32_t j, std::int32_t k) const;
    double operator()(std::int32_t j, std::int32_t k) const { return GetElement(j, k); }
    // Writes element (j, k); false outside the bounds.
    bool SetElement(std::int32_t j, std::int32_t k, double value);

    std::int32_t GetSizeJ() const;
    std::int32_t GetSizeK() const;
    const CGxArray2D<double>& GetArray() const { return array; }
    CGxArray2D<double>& GetArray() { return array; }

    // out = this * (in[0], in[1], in[2]) for a 3 x 3 matrix, without building a
    // vector matrix: the conversion loops of the rotated grids call it for
    // every point. in and out may be the same array. Returns false and writes
    // NaN when this is not 3 x 3.
    bool Transform(const double* in, double* out) const;

private:
    CGxArray2D<double> array;
};
