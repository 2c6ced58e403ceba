#pragma once

#include <new>
#include <stdexcept>

#include "gxcart.h"

// What every flat function shares: a C caller can neither catch a C++
// exception nor be handed a null output pointer safely, and its handles are
// raw object addresses. These helpers give each of those a single defined
// outcome.

// Copies a text result into a caller's buffer. With L the length of text, L
// greater than bufferLength copies nothing and reports L; otherwise text and
// its terminator are copied (L + 1 bytes, so exactly bufferLength characters
// need bufferLength + 1 bytes) and status is GXCART_OK. A null buffer receives
// nothing and status is L; a null text is the empty one.
void GxCopyTextResult(const char* text, char* buffer, int bufferLength, int* status) noexcept;

// The current value behind an in/out pointer, 0 for a null one; and the
// store that skips a null pointer. Outputs are read before a call so that an
// operation that writes nothing leaves the caller's value as it was.
inline double GxLoad(const double* p) noexcept {
    return p ? *p : 0.0;
}
inline void GxStore(double* p, double value) noexcept {
    if (p) *p = value;
}
inline void GxSetStatus(int* status, int value) noexcept {
    if (status) *status = value;
}

// Runs body, swallowing whatever it throws: conversions and queries never
// throw by contract, and this keeps a broken promise from unwinding into C.
template <class Body>
void GxGuarded(Body&& body) noexcept {
    try {
        body();
    } catch (...) {
    }
}

// Runs body for its result; fallback when it throws.
template <class Result, class Body>
Result GxGuardedResult(Result fallback, Body&& body) noexcept {
    try {
        return body();
    } catch (...) {
        return fallback;
    }
}

// The status a failed construction reports: the bare "UTM" names no zone and
// is the one failure a caller can correct; anything else (memory) leaves the
// handle null with GXCART_OK, as an allocation failure always has.
inline int GxStatusOfCurrentException() noexcept {
    try {
        throw;
    } catch (const std::out_of_range&) {
        return GXCART_GENERIC_UTM;
    } catch (...) {
        return GXCART_OK;
    }
}

// The common body of the CREATE functions: make the object, hand its address
// to the caller (or free it when there is nowhere to put it) and report.
template <class Object, class Make>
void GxCreateHandle(Object** handle, int* status, Make&& make) noexcept {
    Object* made = nullptr;
    int result = GXCART_OK;
    try {
        made = make();
    } catch (...) {
        result = GxStatusOfCurrentException();
    }
    if (handle)
        *handle = made;
    else
        delete made;
    GxSetStatus(status, result);
}

// The common body of the DESTROY functions.
template <class Object>
void GxDestroyHandle(Object** handle, int* status) noexcept {
    if (!handle || !*handle) {
        GxSetStatus(status, GXCART_NULL_HANDLE);
        return;
    }
    delete *handle;
    *handle = nullptr;
    GxSetStatus(status, GXCART_OK);
}
