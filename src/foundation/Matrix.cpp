#include "foundation/Matrix.h"

#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <new>

#include "foundation/Tolerance.h"

namespace {

// The element a read outside the bounds gives: NaN where the type has one, so
// that a wrong index shows up in every result it feeds.
template <class T>
T OutsideValue() {
    if constexpr (std::numeric_limits<T>::has_quiet_NaN)
        return std::numeric_limits<T>::quiet_NaN();
    else
        return T();
}

// Checks a shape and returns its element count, or 0 when a size is not
// positive, a last index would overflow 32 bits or the count would.
std::uint32_t CheckedCount(std::int32_t sizeJ, std::int32_t sizeK, std::int32_t jBase,
                           std::int32_t kBase) {
    if (sizeJ <= 0 || sizeK <= 0) return 0;
    constexpr std::int64_t kMaxIndex = std::numeric_limits<std::int32_t>::max();
    if (std::int64_t{jBase} + sizeJ - 1 > kMaxIndex) return 0;
    if (std::int64_t{kBase} + sizeK - 1 > kMaxIndex) return 0;
    const std::uint64_t n = std::uint64_t(sizeJ) * std::uint64_t(sizeK);
    if (n > std::numeric_limits<std::uint32_t>::max()) return 0;
    return std::uint32_t(n);
}

}  // namespace

CGxArrayBase::~CGxArrayBase() = default;

template <class T>
CGxArray2D<T>::CGxArray2D()
    : data(nullptr),
      count(0),
      isView(false),
      jBase(0),
      jLast(-1),
      sizeJ(0),
      kBase(0),
      kLast(-1),
      sizeK(0) {}

template <class T>
CGxArray2D<T>::CGxArray2D(const CGxArray2D& other) : CGxArray2D() {
    _copy(other);
}

template <class T>
CGxArray2D<T>& CGxArray2D<T>::operator=(const CGxArray2D& other) {
    if (this == &other) return *this;
    if (isView && data && other.count == count) {
        // Write through into the shared storage. The source may view all or
        // part of the same storage, so copy in the direction that never reads
        // an element already overwritten.
        if (std::less<const T*>()(other.data, data)) {
            for (std::uint32_t i = count; i-- > 0;) data[i] = other.data[i];
        } else if (other.data != data) {
            for (std::uint32_t i = 0; i < count; ++i) data[i] = other.data[i];
        }
        _setShape(other.sizeJ, other.sizeK, other.jBase, other.kBase, other.count);
        return *this;
    }
    _dealloc();
    _copy(other);
    return *this;
}

template <class T>
CGxArray2D<T>::~CGxArray2D() {
    _dealloc();
}

template <class T>
void CGxArray2D<T>::_dealloc() {
    if (!isView) delete[] data;
    _empty();
}

template <class T>
void CGxArray2D<T>::_empty() {
    data = nullptr;
    isView = false;
    _setShape(0, 0, 0, 0, 0);
}

template <class T>
void CGxArray2D<T>::_setShape(std::int32_t sizeJ_, std::int32_t sizeK_, std::int32_t jBase_,
                              std::int32_t kBase_, std::uint32_t count_) {
    sizeJ = sizeJ_;
    sizeK = sizeK_;
    jBase = jBase_;
    kBase = kBase_;
    // Shapes are checked before they get here (or are empty with base 0), so
    // the last indices fit; only the intermediate base + size may not.
    jLast = std::int32_t(std::int64_t{jBase_} + sizeJ_ - 1);
    kLast = std::int32_t(std::int64_t{kBase_} + sizeK_ - 1);
    count = count_;
}

// Called on an empty array only.
template <class T>
void CGxArray2D<T>::_copy(const CGxArray2D& other) {
    if (other.isView) {
        data = other.data;
        isView = true;
        _setShape(other.sizeJ, other.sizeK, other.jBase, other.kBase, other.count);
        return;
    }
    if (other.count == 0) return;
    T* copy = new (std::nothrow) T[other.count];
    if (!copy) return;
    for (std::uint32_t i = 0; i < other.count; ++i) copy[i] = other.data[i];
    data = copy;
    _setShape(other.sizeJ, other.sizeK, other.jBase, other.kBase, other.count);
}

template <class T>
bool CGxArray2D<T>::Resize(std::int32_t sizeJ_, std::int32_t sizeK_, std::int32_t jBase_,
                           std::int32_t kBase_) {
    _dealloc();
    const std::uint32_t n = CheckedCount(sizeJ_, sizeK_, jBase_, kBase_);
    if (n == 0) return false;
    T* storage = new (std::nothrow) T[n]();
    if (!storage) return false;
    data = storage;
    _setShape(sizeJ_, sizeK_, jBase_, kBase_, n);
    return true;
}

template <class T>
bool CGxArray2D<T>::SetView(T* storage, std::int32_t sizeJ_, std::int32_t sizeK_,
                            std::int32_t jBase_, std::int32_t kBase_) {
    _dealloc();
    const std::uint32_t n = CheckedCount(sizeJ_, sizeK_, jBase_, kBase_);
    if (!storage || n == 0) return false;
    data = storage;
    isView = true;
    _setShape(sizeJ_, sizeK_, jBase_, kBase_, n);
    return true;
}

template <class T>
CGxArray2D<T> CGxArray2D<T>::MakeView() {
    CGxArray2D view;
    if (data) view.SetView(data, sizeJ, sizeK, jBase, kBase);
    return view;
}

template <class T>
T* CGxArray2D<T>::At(std::int32_t j, std::int32_t k) {
    if (!data || j < jBase || j > jLast || k < kBase || k > kLast) return nullptr;
    return data + (std::int64_t{k} - kBase) * sizeJ + (std::int64_t{j} - jBase);
}

template <class T>
const T* CGxArray2D<T>::At(std::int32_t j, std::int32_t k) const {
    return const_cast<CGxArray2D*>(this)->At(j, k);
}

template <class T>
T CGxArray2D<T>::GetElement(std::int32_t j, std::int32_t k) const {
    const T* p = At(j, k);
    return p ? *p : OutsideValue<T>();
}

template <class T>
bool CGxArray2D<T>::SetElement(std::int32_t j, std::int32_t k, const T& value) {
    T* p = At(j, k);
    if (!p) return false;
    *p = value;
    return true;
}

template class CGxArray2D<double>;

CMatrix::CMatrix() = default;

CMatrix::CMatrix(double x, double y, double z) {
    if (array.Resize(1, 3)) {
        double* d = array.GetData();
        d[0] = x;
        d[1] = y;
        d[2] = z;
    }
}

CMatrix::CMatrix(double angle, ERotationType type) {
    if (!array.Resize(3, 3)) return;
    const double a = angle * kGxDegToRad;
    const double c = std::cos(a), s = std::sin(a);
    double* m = array.GetData();  // row after row
    switch (type) {
        case eRotationX: {
            const double r[9] = {1, 0, 0, 0, c, -s, 0, s, c};
            for (int i = 0; i < 9; ++i) m[i] = r[i];
            break;
        }
        case eRotationY: {
            const double r[9] = {c, 0, s, 0, 1, 0, -s, 0, c};
            for (int i = 0; i < 9; ++i) m[i] = r[i];
            break;
        }
        case eRotationZ: {
            const double r[9] = {c, -s, 0, s, c, 0, 0, 0, 1};
            for (int i = 0; i < 9; ++i) m[i] = r[i];
            break;
        }
        default:
            break;
    }
}

CMatrix::CMatrix(const CGxArray2D<double>* source) {
    if (source) array = *source;
}

CMatrix::CMatrix(const CMatrix& other) = default;

CMatrix& CMatrix::operator=(const CMatrix& other) = default;

CMatrix::~CMatrix() = default;

CMatrix CMatrix::operator*(const CMatrix& right) const {
    CMatrix result;
    const std::int32_t rows = array.GetSizeK(), inner = array.GetSizeJ();
    const std::int32_t cols = right.array.GetSizeJ();
    if (!result.array.Resize(cols, rows, right.array.GetJBase(), array.GetKBase())) return result;
    for (std::int32_t r = 0; r < rows; ++r) {
        for (std::int32_t c = 0; c < cols; ++c) {
            double sum = 0;
            for (std::int32_t m = 0; m < inner; ++m) {
                sum +=
                    array.GetElement(array.GetJBase() + m, array.GetKBase() + r) *
                    right.array.GetElement(right.array.GetJBase() + c, right.array.GetKBase() + m);
            }
            *result.array.At(right.array.GetJBase() + c, array.GetKBase() + r) = sum;
        }
    }
    return result;
}

CMatrix CMatrix::operator*(double factor) const {
    CMatrix result;
    if (!result.array.Resize(array.GetSizeJ(), array.GetSizeK(), array.GetJBase(),
                             array.GetKBase()))
        return result;
    const double* in = array.GetData();
    double* out = result.array.GetData();
    for (std::uint32_t i = 0; i < array.GetCount(); ++i) out[i] = in[i] * factor;
    return result;
}

namespace {

// Element-wise combination of two matrices of one shape; empty otherwise.
template <class Op>
CGxArray2D<double> Combine(const CGxArray2D<double>& a, const CGxArray2D<double>& b, Op op) {
    CGxArray2D<double> result;
    if (a.GetSizeJ() != b.GetSizeJ() || a.GetSizeK() != b.GetSizeK()) return result;
    if (!result.Resize(a.GetSizeJ(), a.GetSizeK(), a.GetJBase(), a.GetKBase())) return result;
    const double* x = a.GetData();
    const double* y = b.GetData();
    double* out = result.GetData();
    for (std::uint32_t i = 0; i < result.GetCount(); ++i) out[i] = op(x[i], y[i]);
    return result;
}

}  // namespace

CMatrix CMatrix::operator+(const CMatrix& right) const {
    CGxArray2D<double> sum = Combine(array, right.array, [](double u, double v) { return u + v; });
    return CMatrix(&sum);
}

CMatrix CMatrix::operator-(const CMatrix& right) const {
    CGxArray2D<double> diff = Combine(array, right.array, [](double u, double v) { return u - v; });
    return CMatrix(&diff);
}

double CMatrix::GetElement(std::int32_t j, std::int32_t k) const {
    return array.GetElement(j, k);
}

bool CMatrix::SetElement(std::int32_t j, std::int32_t k, double value) {
    return array.SetElement(j, k, value);
}

std::int32_t CMatrix::GetSizeJ() const {
    return array.GetSizeJ();
}

std::int32_t CMatrix::GetSizeK() const {
    return array.GetSizeK();
}

bool CMatrix::Transform(const double* in, double* out) const {
    if (array.GetSizeJ() != 3 || array.GetSizeK() != 3) {
        out[0] = out[1] = out[2] = std::numeric_limits<double>::quiet_NaN();
        return false;
    }
    const double* m = array.GetData();
    const double x = in[0], y = in[1], z = in[2];
    out[0] = m[0] * x + m[1] * y + m[2] * z;
    out[1] = m[3] * x + m[4] * y + m[5] * z;
    out[2] = m[6] * x + m[7] * y + m[8] * z;
    return true;
}
