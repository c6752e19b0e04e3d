// Run-time errors as they leave the server: every exception raised inside a member becomes
// one HostError, which travels to the host both as the thread's IErrorInfo (early-bound
// callers) and in the EXCEPINFO of IDispatch::Invoke (late-bound callers, whose
// Err.Number is read from its scode).
#pragma once

#include <windows.h>
// (first: the OLE headers below use its types)
#include <oaidl.h>

#include <cstdint>
#include <string>

#include "automation/vb_error.h"

namespace corvid::registration {

struct HostError {
    HRESULT scode = S_OK;
    std::wstring source;
    std::wstring description;
};

// A VB error number 1..65535 travels as MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, n);
// any other number is already a full error code.
HRESULT ScodeFromErrorNumber(std::int32_t number);

// `fallback_source` names the raising class when the error carries no source of its own.
HostError HostErrorFrom(const automation::VbError& error, const std::string& fallback_source);
// For the exception currently being handled; never throws.
HostError HostErrorFromCurrentException(const std::string& fallback_source);

// Makes `error` the thread's error object, as raised through interface `iid`.
void PublishErrorInfo(const HostError& error, REFIID iid);
// Replaces whatever `excepinfo` holds with `error`.
void FillExcepInfo(const HostError& error, EXCEPINFO* excepinfo);

}  // namespace corvid::registration
