// The C_GXDC_ family: conversion between two coordinate systems that may sit
// on different datums.

#include "capi/FlatSupport.h"
#include "datum/DatumConverter.h"

void C_GXDC_CREATE(const char* sourceProjectionString, const char* targetProjectionString,
                   GxDatumConverterHandle* handle, int* status) noexcept {
    GxCreateHandle(handle, status, [&] {
        return new (std::nothrow) CGxDatumConverter(sourceProjectionString, targetProjectionString);
    });
}

void C_GXDC_DESTROY(GxDatumConverterHandle* handle, int* status) noexcept {
    GxDestroyHandle(handle, status);
}

namespace {

using InPlace2 = void (CGxDatumConverter::*)(double&, double&) const;
using InPlace3 = void (CGxDatumConverter::*)(double&, double&, double&) const;

// In-place operations on two or three values; a null pointer takes part as
// 0 and receives nothing.
void Apply(GxDatumConverterHandle handle, InPlace2 member, double* a, double* b) noexcept {
    if (!handle) return;
    GxGuarded([&] {
        double first = GxLoad(a), second = GxLoad(b);
        (handle->*member)(first, second);
        GxStore(a, first);
        GxStore(b, second);
    });
}

void Apply(GxDatumConverterHandle handle, InPlace3 member, double* a, double* b,
           double* c) noexcept {
    if (!handle) return;
    GxGuarded([&] {
        double first = GxLoad(a), second = GxLoad(b), third = GxLoad(c);
        (handle->*member)(first, second, third);
        GxStore(a, first);
        GxStore(b, second);
        GxStore(c, third);
    });
}

}  // namespace

void C_GXDC_CONVERTXY(GxDatumConverterHandle handle, double* x, double* y) noexcept {
    Apply(handle, static_cast<InPlace2>(&CGxDatumConverter::Convert), x, y);
}

void C_GXDC_CONVERTXYH(GxDatumConverterHandle handle, double* x, double* y, double* h) noexcept {
    Apply(handle, static_cast<InPlace3>(&CGxDatumConverter::Convert), x, y, h);
}

void C_GXDC_INVCONVERTXY(GxDatumConverterHandle handle, double* x, double* y) noexcept {
    Apply(handle, static_cast<InPlace2>(&CGxDatumConverter::InvConvert), x, y);
}

void C_GXDC_INVCONVERTXYH(GxDatumConverterHandle handle, double* x, double* y, double* h) noexcept {
    Apply(handle, static_cast<InPlace3>(&CGxDatumConverter::InvConvert), x, y, h);
}

void C_GXDC_CONVERTARRAY(GxDatumConverterHandle handle, double* x, double* y, double* h,
                         size_t count) noexcept {
    if (!handle) return;
    GxGuarded([&] { handle->Convert(x, y, h, count); });
}

void C_GXDC_INVCONVERTARRAY(GxDatumConverterHandle handle, double* x, double* y, double* h,
                            size_t count) noexcept {
    if (!handle) return;
    GxGuarded([&] { handle->InvConvert(x, y, h, count); });
}

void C_GXDC_DATUMSHIFT(GxDatumConverterHandle handle, double* X, double* Y, double* Z) noexcept {
    Apply(handle, &CGxDatumConverter::DatumShift, X, Y, Z);
}

void C_GXDC_INVDATUMSHIFT(GxDatumConverterHandle handle, double* X, double* Y, double* Z) noexcept {
    Apply(handle, &CGxDatumConverter::InvDatumShift, X, Y, Z);
}

void C_GXDC_INVERTORDER(GxDatumConverterHandle handle) noexcept {
    if (handle) handle->InvertOrder();
}

// The enumerations hold only their listed values; an int outside them would
// be no value of the type at all, so it is refused at the boundary.
void C_GXDC_SETCONVERSIONTYPE(GxDatumConverterHandle handle, int conversionType) noexcept {
    if (!handle || conversionType < CGxDatumConverter::eProjToProj ||
        conversionType > CGxDatumConverter::eGeoToGeo)
        return;
    handle->SetConversionType(static_cast<CGxDatumConverter::ETypeOfConversion>(conversionType));
}

void C_GXDC_SETDATUMSHIFT(GxDatumConverterHandle handle, int datumShiftType, double* params,
                          int flag) noexcept {
    if (!handle || datumShiftType < CGxCartDef::eNoDatumShift ||
        datumShiftType > CGxCartDef::eSevenParameterShift)
        return;
    GxGuarded([&] {
        handle->SetDatumShift(static_cast<CGxCartDef::ETypeOfDatumShift>(datumShiftType), params,
                              flag != 0);
    });
}

void C_GXDC_BYPASSXYZ(GxDatumConverterHandle handle) noexcept {
    if (handle) handle->BypassXYZ();
}

void C_GXDC_RESETBYPASSXYZ(GxDatumConverterHandle handle) noexcept {
    if (handle) handle->ResetBypassXYZ();
}

int C_GXDC_GETBYPASSXYZ(GxDatumConverterHandle handle) noexcept {
    return handle && handle->GetBypassXYZ() ? 1 : 0;
}
