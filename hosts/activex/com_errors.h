#pragma once
// The host's run-time errors across COM: an error number and its description go to the caller
// through IErrorInfo, and the HRESULT carries the number in the control facility (0x800A0000 |
// number), so a script sees Err.Number and Err.Description as the host raised them. No C++
// exception ever leaves a COM method: every body runs inside Guard.

#include <windows.h>

#include <cstdint>
#include <string>

namespace vex::activex {

// Sets the thread's error information (source "Vex_Panel.VexPanel") and returns the HRESULT.
HRESULT ReportError(int32_t number, const std::string& description);

// Reports the exception in flight (a RuntimeError with its number; out of memory as error 7;
// anything else as an unexpected failure).
HRESULT ReportCurrentException() noexcept;

template <typename Body>
HRESULT Guard(Body&& body) noexcept
{
    try {
        body();
        return S_OK;
    } catch (...) {
        return ReportCurrentException();
    }
}

} // namespace vex::activex
