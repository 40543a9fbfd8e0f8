// What the Windows test programs share: one "FAIL ..." line per difference, counted for the exit
// status; text between the system's wide strings and UTF-8; and IUnknown for the COM objects a
// test keeps on its stack (sinks, sites, bags).
#pragma once

#include <windows.h>
#include <objbase.h>

#include <cstdio>
#include <string>
#include <string_view>

namespace vex::activex::test {

inline int gFailures = 0;

// Flushed at once: a program that then hangs or crashes under Wine still shows what failed.
template <typename... Args>
void Fail(const char* format, Args... args)
{
    std::printf("FAIL ");
    std::printf(format, args...);
    std::printf("\n");
    std::fflush(stdout);
    ++gFailures;
}

// A program's exit status: 1 once anything failed.
inline int Status() { return gFailures ? 1 : 0; }

inline std::string Narrow(const wchar_t* text)
{
    if (!text || !*text)
        return {};
    const int size = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string out(static_cast<size_t>(size > 0 ? size - 1 : 0), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, -1, out.data(), size, nullptr, nullptr);
    return out;
}

inline std::wstring Wide(std::string_view text)
{
    if (text.empty())
        return {};
    const int length = static_cast<int>(text.size());
    std::wstring out(static_cast<size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0)), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), length, out.data(), static_cast<int>(out.size()));
    return out;
}

// A GUID written without braces, as the server's identity tables hold them.
inline GUID ParseGuid(std::string_view text)
{
    GUID guid {};
    CLSIDFromString((L"{" + Wide(text) + L"}").c_str(), &guid);
    return guid;
}

// IUnknown of an object that lives on a test's stack: it answers for IUnknown and each of iids
// with the one Interface it implements, and counting references never frees it (the test
// outlives every holder it hands the object to).
template <typename Interface, const IID&... iids>
class StackObject : public Interface {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override
    {
        if (iid == IID_IUnknown || ((iid == iids) || ...)) {
            *object = static_cast<Interface*>(this);
            return S_OK;
        }
        *object = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
};

} // namespace vex::activex::test
