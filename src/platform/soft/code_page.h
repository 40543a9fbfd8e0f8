#pragma once
// Windows-1252, the ANSI code page DrawTextA sees: UTF-8 text is converted to it as
// WideCharToMultiByte would (characters the page lacks become '?'), and glyphs are looked up
// by the Unicode character each byte stands for.

#include <string>
#include <string_view>

namespace vex::platform::soft {

std::string Utf8ToCodePage1252(std::string_view text);
char32_t CodePage1252ToUnicode(unsigned char byte);

} // namespace vex::platform::soft
