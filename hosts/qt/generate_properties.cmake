# Writes the Qt face of the panel's properties from the one property table: a QWidget base class
# with every property as a Q_PROPERTY under its exact name and every enumeration as a Q_ENUM.
# moc reads Q_PROPERTY lines as written, so they are generated rather than made by the table's
# X-macro.   cmake -DTABLE=property_table.h -DENUMS=enums.h -DOUTPUT=vex_panel_properties.h -P this
cmake_minimum_required(VERSION 3.25)

# ---- Enumerations: #define VEX_MEMBERS_<Enum>(X) X(identifier, "published name", value) ... ----
# Lines as a list: the macros' continuation backslashes would escape the list separators.
function(read_lines file variable)
  file(READ ${file} text)
  string(REPLACE "\\" "" text "${text}")
  string(REPLACE ";" "," text "${text}")
  string(REPLACE "\n" ";" text "${text}")
  set(${variable} "${text}" PARENT_SCOPE)
endfunction()

read_lines(${ENUMS} enum_lines)
set(enums)
set(current "")
foreach(line IN LISTS enum_lines)
  if(line MATCHES "^#define VEX_MEMBERS_([A-Za-z0-9_]+)\\(X\\)")
    set(current ${CMAKE_MATCH_1})
    list(APPEND enums ${current})
    set(members_${current})
  elseif(line MATCHES "^#")
    set(current "")
  endif()
  if(current)
    string(REGEX MATCHALL "X\\([A-Za-z0-9_]+, \"[^\"]*\", -?[0-9]+\\)" found "${line}")
    foreach(member IN LISTS found)
      string(REGEX REPLACE "X\\(([A-Za-z0-9_]+), \"[^\"]*\", (-?[0-9]+)\\)" "\\1 = \\2" member "${member}")
      list(APPEND members_${current} "${member}")
    endforeach()
  endif()
endforeach()

# ---- Properties: X(Name, Store, Type, Default, Rule, Dispid, Flags, Persist, ReadAt, WriteAt) ----
read_lines(${TABLE} lines)
list(FILTER lines INCLUDE REGEX "^ *X\\([A-Za-z]")
set(rows ${lines})
set(declarations "")
set(accessors "")
set(signals "")
set(count 0)
foreach(row IN LISTS rows)
  string(REGEX REPLACE "^ *X\\((.*)\\) *$" "\\1" row "${row}")
  string(REPLACE "," ";" fields "${row}")
  list(TRANSFORM fields STRIP)
  list(GET fields 0 name)
  list(GET fields 2 type)
  list(GET fields 4 rule)
  list(GET fields 6 flags)
  list(GET fields 7 persist)
  if(type STREQUAL "bool")
    set(qtype bool)
    set(kind Bool)
  elseif(type MATCHES "^(int16_t|int32_t|uint8_t)$")
    set(qtype int)
    set(kind Int)
  elseif(type STREQUAL "float")
    set(qtype double) # a .ui file and Designer hold doubles, not floats
    set(kind Single)
  elseif(type STREQUAL "OleColor")
    set(qtype QColor)
    set(kind Colour)
  elseif(type STREQUAL "std::string")
    set(qtype QString)
    set(kind Text)
  elseif(type STREQUAL "platform::FontDesc")
    set(qtype QFont)
    set(kind Font)
  elseif(type STREQUAL "platform::PictureRef")
    set(qtype QPixmap)
    set(kind Picture)
  elseif(type IN_LIST enums)
    set(qtype ${type})
    set(kind Enum)
  else()
    message(FATAL_ERROR "property ${name}: no Qt type for ${type}")
  endif()
  set(write "")
  if(NOT rule STREQUAL "ReadOnly")
    set(write " WRITE put_${name}")
  endif()
  set(designable "")
  if(flags MATCHES "Hidden")
    set(designable " DESIGNABLE false")
  endif()
  # Stored (in a .ui file) exactly when the panel persists it; and FontSize, because a .ui
  # <font> holds whole points only: stored after Font, it brings back a size such as 8.25.
  set(stored "")
  if(persist STREQUAL "None" AND NOT name STREQUAL "FontSize")
    set(stored " STORED false")
  endif()
  string(APPEND declarations "    Q_PROPERTY(${qtype} ${name} READ get_${name}${write} NOTIFY ${name}Changed${designable}${stored})\n")
  if(kind STREQUAL "Enum")
    string(APPEND accessors "    ${qtype} get_${name}() const { return static_cast<${qtype}>(ReadInt(\"${name}\")); }\n")
    if(write)
      string(APPEND accessors "    void put_${name}(${qtype} value) { WriteInt(\"${name}\", static_cast<int>(value)); }\n")
    endif()
  else()
    set(in "${qtype}")
    if(qtype MATCHES "^Q")
      set(in "const ${qtype}&")
    endif()
    string(APPEND accessors "    ${qtype} get_${name}() const { return Read${kind}(\"${name}\"); }\n")
    if(write)
      string(APPEND accessors "    void put_${name}(${in} value) { Write${kind}(\"${name}\", value); }\n")
    endif()
  endif()
  string(APPEND signals "    void ${name}Changed();\n")
  math(EXPR count "${count} + 1")
endforeach()
if(count EQUAL 0)
  message(FATAL_ERROR "no properties found in ${TABLE}")
endif()

# The pages' Windows gradient list offers 6 and 7, which no member names; Qt-only members let
# Designer's list show them and a .ui file keep them (an <enum> holds a member's name).
list(APPEND members_TypeWinGradientDirection "RetangleTopToBorder = 6" "RetangleBorderToTop = 7")

set(enum_declarations "")
foreach(enum IN LISTS enums)
  list(JOIN members_${enum} ", " members)
  string(APPEND enum_declarations "    enum class ${enum} : qint16 { ${members} };\n    Q_ENUM(${enum})\n")
endforeach()

set(text "#pragma once
// Generated from model/property_table.h and model/enums.h by hosts/qt/generate_properties.cmake:
// do not edit. The panel's ${count} properties as Qt properties under their exact names, each read
// and written by name through the control's own sets (qt_properties.cpp); the enumerations as
// Q_ENUMs. Colours are QColors (a system colour keeps its index, qt_colours.h), the font a QFont,
// pictures QPixmaps.

#include <QColor>
#include <QFont>
#include <QPixmap>
#include <QWidget>

namespace vex::control {
class VexPanel;
}

namespace vex::qt {

class VexPanelProperties : public QWidget {
    Q_OBJECT
${declarations}
public:
${enum_declarations}
    using QWidget::QWidget;

${accessors}
signals:
${signals}
protected:
    // The panel the properties belong to.
    virtual control::VexPanel& PropertyPanel() const = 0;

private:
    int ReadInt(const char* name) const;
    void WriteInt(const char* name, int value);
    bool ReadBool(const char* name) const;
    void WriteBool(const char* name, bool value);
    double ReadSingle(const char* name) const;
    void WriteSingle(const char* name, double value);
    QColor ReadColour(const char* name) const;
    void WriteColour(const char* name, const QColor& value);
    QString ReadText(const char* name) const;
    void WriteText(const char* name, const QString& value);
    QFont ReadFont(const char* name) const;
    void WriteFont(const char* name, const QFont& value);
    QPixmap ReadPicture(const char* name) const;
    void WritePicture(const char* name, const QPixmap& value);
};

} // namespace vex::qt
")
file(WRITE ${OUTPUT}.new "${text}")
file(COPY_FILE ${OUTPUT}.new ${OUTPUT} ONLY_IF_DIFFERENT)
file(REMOVE ${OUTPUT}.new)
