#include "panel_file.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <map>
#include <sstream>

#include "base/runtime_error.h"
#include "model/enum_names.h"
#include "model/property_table.h"
#include "control/persisted_keys.h"
#include "control/vxp_format.h"

namespace vex::cli {

namespace {

std::string_view Trim(std::string_view text)
{
    const size_t begin = text.find_first_not_of(" \t\r");
    if (begin == std::string_view::npos)
        return {};
    return text.substr(begin, text.find_last_not_of(" \t\r") - begin + 1);
}

bool SameIgnoringCase(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
        [](char x, char y) { return std::tolower(static_cast<unsigned char>(x)) == std::tolower(static_cast<unsigned char>(y)); });
}

// A member named by `text`: its exact name first, then ignoring case and blanks around it.
const model::EnumMember* MemberNamed(const model::EnumInfo& info, std::string_view text)
{
    for (const model::EnumMember& member : info.members)
        if (member.name == text)
            return &member;
    for (const model::EnumMember& member : info.members)
        if (SameIgnoringCase(Trim(member.name), Trim(text)))
            return &member;
    return nullptr;
}

bool IsPersistedKey(std::string_view key)
{
    const auto keys = control::ReadOrder();
    return std::find(keys.begin(), keys.end(), key) != keys.end();
}

// The top-level line of a .vxp text that sets `key` ("Key = ..." or "Key {"), with its number.
std::pair<int, std::string> LineOfKey(const std::string& text, std::string_view key)
{
    std::istringstream lines(text);
    std::string line;
    int number = 0, depth = 0;
    while (std::getline(lines, line)) {
        ++number;
        std::string_view content = Trim(line);
        if (number == 1 && content.starts_with("\xEF\xBB\xBF"))
            content = Trim(content.substr(3));
        if (content == "}") {
            depth = std::max(depth - 1, 0);
            continue;
        }
        const bool opens = !content.empty() && content.back() == '{';
        if (depth == 0 && content.starts_with(key)) {
            std::string_view rest = Trim(content.substr(key.size()));
            if (!rest.empty() && (rest.front() == '=' || rest.front() == '{'))
                return { number, std::string(opens ? std::string(key) + " { ... }" : std::string(content)) };
        }
        if (opens)
            ++depth;
    }
    return { 0, {} };
}

// A bag in front of another that remembers the last key the panel asked for.
class TrackingBag final : public control::PropertyBag {
public:
    explicit TrackingBag(control::PropertyBag& inner) : inner_(inner) { }
    control::PropertyValue ReadProperty(const std::string& name, const control::PropertyValue& defaultValue) override
    {
        last = name;
        return inner_.ReadProperty(name, defaultValue);
    }
    void WriteProperty(const std::string& name, const control::PropertyValue& value, const control::PropertyValue& defaultValue) override
    {
        inner_.WriteProperty(name, value, defaultValue);
    }
    std::string last;

private:
    control::PropertyBag& inner_;
};

std::string Describe(const RuntimeError& error)
{
    return "error " + std::to_string(error.number()) + ": " + error.description();
}

} // namespace

std::string_view EnumerationOf(std::string_view key)
{
    const model::PropertyInfo* info = model::FindProperty(key);
    return info != nullptr ? info->enumeration : std::string_view {};
}

Setting ParseSetting(std::string_view option, std::string_view optionName)
{
    const std::string prefix = std::string(optionName) + (optionName.empty() ? "" : " ") + std::string(option) + ": ";
    const size_t equals = option.find('=');
    if (equals == std::string_view::npos)
        throw CommandError(prefix + "Key=Value expected");
    Setting setting { std::string(Trim(option.substr(0, equals))), {}, std::string(option) };
    const std::string_view text = option.substr(equals + 1);
    if (!IsPersistedKey(setting.key))
        throw CommandError(prefix + "no property is called '" + setting.key + "'");
    if (const model::EnumInfo* info = model::FindEnumeration(EnumerationOf(setting.key))) {
        if (const model::EnumMember* member = MemberNamed(*info, text)) {
            setting.value = static_cast<int16_t>(member->value);
            return setting;
        }
    }
    const model::EnumInfo* enumeration = model::FindEnumeration(EnumerationOf(setting.key));
    try {
        control::MemoryPropertyBag line = control::ParseVxp(setting.key + " = " + std::string(text));
        if (line.Entries().size() != 1)
            throw CommandError(prefix + "one value expected");
        setting.value = line.Entries().front().second;
    } catch (const RuntimeError& error) {
        if (enumeration && error.code() == ErrorCode::InvalidFileFormat) {
            std::string members;
            for (const model::EnumMember& member : enumeration->members)
                members += (members.empty() ? "" : ", ") + std::string(member.name);
            throw CommandError(prefix + "neither a number nor a member of " + std::string(enumeration->name) + " (" + members + ")");
        }
        std::string reason = Describe(error);
        // The line number of a one-line text says nothing.
        if (size_t at = reason.find("line 1: "); at != std::string::npos)
            reason.erase(at, 8);
        throw CommandError(prefix + reason);
    }
    return setting;
}

void LoadPanel(control::VexPanel& panel, const std::string& path, const std::vector<Setting>& settings)
{
    control::MemoryPropertyBag bag;
    try {
        bag = control::ReadVxpFile(path);
    } catch (const RuntimeError& error) {
        throw CommandError(path + ": " + Describe(error));
    }
    for (const Setting& setting : settings)
        bag.Set(setting.key, setting.value);

    TrackingBag tracking(bag);
    try {
        panel.ReadProperties(tracking);
    } catch (const RuntimeError& error) {
        for (auto it = settings.rbegin(); it != settings.rend(); ++it)
            if (it->key == tracking.last)
                throw CommandError("--set " + it->option + ": " + Describe(error));
        std::ifstream file(path, std::ios::binary);
        std::ostringstream text;
        text << file.rdbuf();
        const auto [number, line] = LineOfKey(text.str(), tracking.last);
        if (number == 0)
            throw CommandError(path + ": " + Describe(error) + ": " + tracking.last);
        throw CommandError(path + ": " + Describe(error) + ": " + line + " (line " + std::to_string(number) + ")");
    }
}

std::string ListProperties(const control::VexPanel& panel)
{
    control::MemoryPropertyBag bag;
    for (std::string_view key : control::ReadOrder())
        bag.Set(std::string(key), panel.PersistedValue(key));
    std::istringstream lines(control::FormatVxp(bag));
    std::string out, line;
    while (std::getline(lines, line)) {
        const size_t equals = line.find(" = ");
        if (equals != std::string::npos && line.front() != ' ') {
            const std::string_view key(line.data(), equals);
            if (const model::EnumInfo* info = model::FindEnumeration(EnumerationOf(key))) {
                const control::PropertyValue value = panel.PersistedValue(key);
                const auto* number = std::get_if<int16_t>(&value);
                if (std::string_view name = number ? model::MemberName(*info, *number) : std::string_view {}; !name.empty())
                    line += "  # " + std::string(name);
            }
        }
        out += line + "\n";
    }
    return out;
}

} // namespace vex::cli
