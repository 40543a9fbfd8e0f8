#include "com_errors.h"

#include <oleauto.h>

#include <new>

#include "base/runtime_error.h"
#include "container_host.h"
#include "typelib_ids.h"

namespace vex::activex {

HRESULT ReportError(int32_t number, const std::string& description)
{
    ICreateErrorInfo* create = nullptr;
    if (SUCCEEDED(CreateErrorInfo(&create))) {
        std::wstring source = Wide(kProgId);
        std::wstring text = Wide(description);
        create->SetSource(source.data());
        create->SetDescription(text.data());
        IErrorInfo* info = nullptr;
        if (SUCCEEDED(create->QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(&info)))) {
            SetErrorInfo(0, info);
            info->Release();
        }
        create->Release();
    }
    return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, static_cast<uint32_t>(number) & 0xFFFF);
}

HRESULT ReportCurrentException() noexcept
{
    try {
        throw;
    } catch (const RuntimeError& error) {
        return ReportError(error.number(), error.description());
    } catch (const std::bad_alloc&) {
        return ReportError(static_cast<int32_t>(ErrorCode::OutOfMemory), StandardDescription(7));
    } catch (...) {
        return E_UNEXPECTED;
    }
}

} // namespace vex::activex
