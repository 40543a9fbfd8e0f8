// The control's persistence in a container. New controls run InitProperties (InitNew). A
// container with a property bag gets the 59 keys in it (ContainerBag). A container that saves binary (IPersistStreamInit) gets the panel's persisted keys as the text
// of a .vxp file, after a 4-byte tag "VXP1" and the text's length (32-bit, little-endian): the
// same format a panel designed elsewhere is saved in, so a stream and a .vxp file say the same.
#include "com_panel.h"

#include <cstring>

#include "base/runtime_error.h"
#include "container_bag.h"
#include "control/memory_property_bag.h"
#include "control/vxp_format.h"
#include "typelib_ids.h"

namespace vex::activex {

namespace {

constexpr char kStreamTag[4] = { 'V', 'X', 'P', '1' };

void ReadExactly(IStream* stream, void* data, ULONG size)
{
    ULONG read = 0;
    if (FAILED(stream->Read(data, size, &read)) || read != size)
        Raise(ErrorCode::InputPastEndOfFile);
}

void WriteExactly(IStream* stream, const void* data, ULONG size)
{
    ULONG written = 0;
    if (FAILED(stream->Write(data, size, &written)) || written != size)
        Raise(ErrorCode::DeviceIOError);
}

} // namespace

HRESULT ComPanel::GetClassID(CLSID* classId)
{
    if (!classId)
        return E_POINTER;
    *classId = CLSID_VexPanel;
    return S_OK;
}

HRESULT ComPanel::InitNew()
{
    if (initialised_)
        return E_UNEXPECTED;
    initialised_ = true;
    ReadAmbient();
    return Guard([&] { panel_->InitProperties(); });
}

HRESULT ComPanel::Load(LPSTREAM stream)
{
    if (!stream)
        return E_POINTER;
    if (initialised_)
        return E_UNEXPECTED;
    initialised_ = true;
    ReadAmbient();
    return Guard([&] {
        char tag[4];
        uint32_t length = 0;
        ReadExactly(stream, tag, sizeof tag);
        ReadExactly(stream, &length, sizeof length);
        if (std::memcmp(tag, kStreamTag, sizeof tag) != 0 || length > control::kMaxVxpFileBytes)
            Raise(ErrorCode::InvalidFileFormat);
        std::string text(length, '\0');
        ReadExactly(stream, text.data(), length);
        control::MemoryPropertyBag bag = control::ParseVxp(text);
        panel_->ReadProperties(bag);
        dirty_ = false;
    });
}

HRESULT ComPanel::Save(LPSTREAM stream, BOOL clearDirty)
{
    if (!stream)
        return E_POINTER;
    return Guard([&] {
        control::MemoryPropertyBag bag;
        panel_->WriteProperties(bag);
        std::string text = control::FormatVxp(bag);
        if (text.size() > control::kMaxVxpFileBytes)
            Raise(ErrorCode::OutOfMemory);
        uint32_t length = static_cast<uint32_t>(text.size());
        WriteExactly(stream, kStreamTag, sizeof kStreamTag);
        WriteExactly(stream, &length, sizeof length);
        WriteExactly(stream, text.data(), length);
        if (clearDirty)
            dirty_ = false;
    });
}

HRESULT ComPanel::GetSizeMax(ULARGE_INTEGER* size)
{
    if (!size)
        return E_POINTER;
    return Guard([&] {
        control::MemoryPropertyBag bag;
        panel_->WriteProperties(bag);
        size->QuadPart = sizeof kStreamTag + sizeof(uint32_t) + control::FormatVxp(bag).size();
    });
}

// ---- IPersistPropertyBag ---------------------------------------------------------------------------

HRESULT ComPanel::Load(IPropertyBag* bag, IErrorLog* log)
{
    if (!bag)
        return E_POINTER;
    if (initialised_)
        return E_UNEXPECTED;
    initialised_ = true;
    ReadAmbient();
    return Guard([&] {
        ContainerBag container(bag, log);
        panel_->ReadProperties(container);
        dirty_ = false;
    });
}

HRESULT ComPanel::Save(IPropertyBag* bag, BOOL clearDirty, BOOL)
{
    if (!bag)
        return E_POINTER;
    return Guard([&] {
        ContainerBag container(bag, nullptr);
        panel_->WriteProperties(container);
        if (clearDirty)
            dirty_ = false;
    });
}

// ---- IPersistStorage ---------------------------------------------------------------------------

namespace {

constexpr wchar_t kContents[] = L"Contents";

} // namespace

HRESULT ComPanel::InitNew(IStorage* storage) { return storage ? InitNew() : E_POINTER; }

HRESULT ComPanel::Load(IStorage* storage)
{
    if (!storage)
        return E_POINTER;
    IStream* stream = nullptr;
    HRESULT status = storage->OpenStream(kContents, nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0, &stream);
    if (FAILED(status))
        return status;
    status = Load(stream);
    stream->Release();
    return status;
}

HRESULT ComPanel::Save(IStorage* storage, BOOL)
{
    if (!storage)
        return E_POINTER;
    IStream* stream = nullptr;
    HRESULT status = storage->CreateStream(kContents, STGM_CREATE | STGM_WRITE | STGM_SHARE_EXCLUSIVE, 0, 0, &stream);
    if (FAILED(status))
        return status;
    status = Save(stream, TRUE);
    stream->Release();
    return status;
}

} // namespace vex::activex
