#include "container_bag.h"

#include "base/runtime_error.h"
#include "com_values.h"

namespace vex::activex {

namespace {

// Variant conversion failures as the host's errors.
void Check(HRESULT status)
{
    if (status == DISP_E_OVERFLOW)
        Raise(ErrorCode::Overflow);
    if (FAILED(status))
        Raise(ErrorCode::TypeMismatch);
}

template <typename Interface>
Interface* ObjectOf(const VARIANT& value, REFIID iid)
{
    if ((V_VT(&value) != VT_DISPATCH && V_VT(&value) != VT_UNKNOWN) || !V_UNKNOWN(&value))
        return nullptr;
    Interface* object = nullptr;
    if (FAILED(V_UNKNOWN(&value)->QueryInterface(iid, reinterpret_cast<void**>(&object))))
        Raise(ErrorCode::TypeMismatch);
    return object;
}

} // namespace

control::PropertyValue ContainerBag::ReadProperty(const std::string& name, const control::PropertyValue& defaultValue)
{
    std::wstring key = Wide(name);
    VARIANT value;
    VariantInit(&value);
    using control::ValueType;
    const ValueType type = control::TypeOf(defaultValue);
    // Objects come as the container made them; scalars are asked for in their type.
    if (type != ValueType::Font && type != ValueType::Picture) {
        static constexpr VARTYPE kTypes[] = { VT_I2, VT_I4, VT_R4, VT_BOOL, VT_BSTR };
        V_VT(&value) = kTypes[static_cast<int>(type)];
    }
    if (FAILED(bag_->Read(key.c_str(), &value, log_))) {
        VariantClear(&value);
        return defaultValue; // a missing key
    }
    control::PropertyValue result = defaultValue;
    HRESULT status = S_OK;
    VARIANT converted;
    VariantInit(&converted);
    switch (type) {
    case ValueType::Int16:
        status = VariantChangeType(&converted, &value, 0, VT_I2);
        if (SUCCEEDED(status))
            result = static_cast<int16_t>(V_I2(&converted));
        break;
    case ValueType::Int32:
        status = VariantChangeType(&converted, &value, 0, VT_I4);
        if (SUCCEEDED(status))
            result = static_cast<int32_t>(V_I4(&converted));
        break;
    case ValueType::Single:
        status = VariantChangeType(&converted, &value, 0, VT_R4);
        if (SUCCEEDED(status))
            result = V_R4(&converted);
        break;
    case ValueType::Boolean:
        status = VariantChangeType(&converted, &value, 0, VT_BOOL);
        if (SUCCEEDED(status))
            result = V_BOOL(&converted) != VARIANT_FALSE;
        break;
    case ValueType::String:
        status = VariantChangeType(&converted, &value, 0, VT_BSTR);
        if (SUCCEEDED(status))
            result = FromBstr(V_BSTR(&converted));
        break;
    case ValueType::Font:
        if (IFontDisp* font = ObjectOf<IFontDisp>(value, IID_IFontDisp)) {
            result = FromFont(font);
            font->Release();
        }
        break;
    case ValueType::Picture:
        if (IPictureDisp* picture = ObjectOf<IPictureDisp>(value, IID_IPictureDisp)) {
            try {
                result = FromPicture(picture);
            } catch (...) {
                picture->Release();
                VariantClear(&value);
                throw;
            }
            picture->Release();
        } else {
            result = platform::PictureRef();
        }
        break;
    }
    VariantClear(&converted);
    VariantClear(&value);
    Check(status);
    return result;
}

void ContainerBag::WriteProperty(const std::string& name, const control::PropertyValue& value,
    const control::PropertyValue& defaultValue)
{
    if (control::SameValue(value, defaultValue))
        return;
    VARIANT variant;
    VariantInit(&variant);
    switch (control::TypeOf(value)) {
    case control::ValueType::Int16:
        V_VT(&variant) = VT_I2;
        V_I2(&variant) = std::get<int16_t>(value);
        break;
    case control::ValueType::Int32:
        V_VT(&variant) = VT_I4;
        V_I4(&variant) = std::get<int32_t>(value);
        break;
    case control::ValueType::Single:
        V_VT(&variant) = VT_R4;
        V_R4(&variant) = std::get<float>(value);
        break;
    case control::ValueType::Boolean:
        V_VT(&variant) = VT_BOOL;
        V_BOOL(&variant) = std::get<bool>(value) ? VARIANT_TRUE : VARIANT_FALSE;
        break;
    case control::ValueType::String:
        V_VT(&variant) = VT_BSTR;
        V_BSTR(&variant) = ToBstr(std::get<std::string>(value));
        break;
    case control::ValueType::Font:
        V_VT(&variant) = VT_DISPATCH;
        V_DISPATCH(&variant) = ToFont(std::get<platform::FontDesc>(value));
        break;
    case control::ValueType::Picture:
        if (IPictureDisp* picture = ToPicture(std::get<platform::PictureRef>(value))) {
            V_VT(&variant) = VT_DISPATCH;
            V_DISPATCH(&variant) = picture;
        }
        break;
    }
    std::wstring key = Wide(name);
    HRESULT status = bag_->Write(key.c_str(), &variant);
    VariantClear(&variant);
    if (FAILED(status))
        Raise(ErrorCode::DeviceIOError);
}

} // namespace vex::activex
