// Finishes the compiled type library (the MSFT format the IDL compiler writes): every
// enumeration member gets its published name (bracketed where it carries blanks or a hyphen,
// see LibraryName) and a help string, its own name, which the IDL compiler cannot express.
//     finish-typelib COMPILED.tlb OUTPUT.tlb
//
// The file, as far as this step touches it (little-endian 32-bit fields):
//   header (0x54 bytes; +4 with a help DLL), one offset per type info, then the directory of 15
//   segments {offset, length, -1, 0x0F}: the name table is segment 7 and the string table 8;
//   after the segments, each type info's member data at its memoffset:
//       [length of the records][records][member ids][name offsets][record offsets]
//   An enumeration's records are variable records {Info (low byte: record length), DataType,
//   Flags, VarKind | size, Value, [HelpContext, HelpString, ...]}.
//   A name is {hreftype, next in its hash bucket, length (low byte) | flags (next byte) | hash
//   (high word)} and its characters; a string is a 16-bit length and its characters; both are
//   padded to 4 bytes (at least 8) with 'W'. Segment 6 holds the heads of the 128 name buckets
//   (the hash's low seven bits): the system finds a name (ITypeComp::Bind, ITypeLib::FindName)
//   by its hash in its bucket's chain.
// New names and strings are appended to their tables (a name already there is shared), each new
// name at the head of its bucket; the enumerations' member data are rewritten with 28-byte
// records, and every file offset after a change moves with it. The old stand-in names stay in
// the table, unreferenced.
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "model/enum_names.h"
#include "typelib_ids.h"

namespace {

using Bytes = std::vector<uint8_t>;

constexpr size_t kHeaderSize = 0x54;
constexpr int32_t kHelpDllFlag = 0x100;
constexpr size_t kTypeInfoSize = 0x64;
constexpr int kSegmentCount = 15;
constexpr int kTypeInfoSegment = 0;
constexpr int kNameHashSegment = 6;
constexpr int kNameSegment = 7;
constexpr int kStringSegment = 8;
constexpr size_t kRecordWithHelp = 28; // a variable record up to its HelpString
constexpr int32_t kNameBuckets = 0x80;

[[noreturn]] void Fail(const std::string& why) { throw std::runtime_error(why); }

// The system's name hash (LHashValOfNameSys) for the neutral locale, its low word: from
// 0x0DEADBEE, hash = 37 hash + the weight of each character (32-bit), then modulo 65599. Letters
// weigh as capitals, except W and Y, which weigh as V and U; digits, the blank and the
// punctuation the published names use weigh their own code (measured, for every character
// here, against the system's function).
uint16_t NameHash(const std::string& name)
{
    uint32_t hash = 0x0DEADBEE;
    for (const char c : name) {
        uint32_t weight = static_cast<unsigned char>(c);
        if (weight >= 'a' && weight <= 'z')
            weight -= 'a' - 'A';
        if (weight == 'W' || weight == 'Y')
            weight = weight == 'W' ? 'V' : 'U';
        const bool known = (weight >= 'A' && weight <= 'Z') || (weight >= '0' && weight <= '9') || c == ' ' || c == '-'
            || c == '[' || c == ']' || c == '_';
        if (!known)
            Fail("no hash weight known for a character of the name " + name);
        hash = 37 * hash + weight;
    }
    return static_cast<uint16_t>(hash % 65599);
}

int32_t Read32(const Bytes& file, size_t at)
{
    if (at + 4 > file.size())
        Fail("a field lies past the end of the file");
    return static_cast<int32_t>(file[at] | file[at + 1] << 8 | file[at + 2] << 16 | uint32_t(file[at + 3]) << 24);
}

void Write32(Bytes& bytes, size_t at, int32_t value)
{
    for (int i = 0; i < 4; ++i)
        bytes[at + i] = static_cast<uint8_t>(static_cast<uint32_t>(value) >> (8 * i));
}

void Append32(Bytes& bytes, int32_t value)
{
    bytes.resize(bytes.size() + 4);
    Write32(bytes, bytes.size() - 4, value);
}

void Pad(Bytes& bytes, size_t start)
{
    while ((bytes.size() - start) % 4 != 0 || bytes.size() - start < 8)
        bytes.push_back('W');
}

// A change to the file: removed bytes at `at` replaced by `inserted`.
struct Edit {
    size_t at;
    size_t removed;
    Bytes inserted;
};

class Library {
public:
    explicit Library(Bytes file) : file_(std::move(file))
    {
        if (Read32(file_, 0) != 0x5446534D)
            Fail("not an MSFT type library");
        const int32_t count = Read32(file_, 0x20);
        size_t directory = kHeaderSize + ((Read32(file_, 0x14) & kHelpDllFlag) ? 4 : 0) + 4 * static_cast<size_t>(count);
        directory_ = directory;
        typeInfos_ = static_cast<size_t>(count);
        for (int i = 0; i < kSegmentCount; ++i)
            segments_[i] = { Read32(file_, directory + 16 * i), Read32(file_, directory + 16 * i + 4) };
        if (Read32(file_, 0x10) != 0)
            Fail("the name hash is known for the neutral locale only");
        if (segments_[kNameHashSegment].length != 4 * kNameBuckets)
            Fail("the name hash table is not 128 buckets");
        for (int32_t bucket = 0; bucket < kNameBuckets; ++bucket)
            buckets_.push_back(Read32(file_, Segment(kNameHashSegment, 4 * bucket, 4)));
        for (int32_t offset = 0; offset < segments_[kNameSegment].length;) {
            const std::string name = Name(offset);
            known_.emplace(name, offset);
            offset += static_cast<int32_t>((12 + name.size() + 3) & ~size_t { 3 });
        }
    }

    std::string Name(int32_t offset) const
    {
        size_t at = Segment(kNameSegment, offset, 12);
        size_t length = static_cast<size_t>(Read32(file_, at + 8) & 0xFF);
        if (at + 12 + length > file_.size())
            Fail("a name lies past the end of the file");
        return std::string(file_.begin() + at + 12, file_.begin() + at + 12 + length);
    }

    // A name of the name table (appended, at the head of its hash bucket, unless it is there
    // already); returns its offset there.
    int32_t AddName(const std::string& name, int32_t hrefType, int32_t flags)
    {
        if (auto found = known_.find(name); found != known_.end())
            return found->second;
        if (name.size() > 0xFF)
            Fail("a name longer than 255 characters: " + name);
        int32_t offset = segments_[kNameSegment].length + static_cast<int32_t>(names_.size());
        size_t start = names_.size();
        const uint16_t hash = NameHash(name);
        int32_t& bucket = buckets_[hash & (kNameBuckets - 1)];
        Append32(names_, hrefType);
        Append32(names_, bucket);
        Append32(names_, static_cast<int32_t>(name.size() | (flags & 0xFF) << 8 | uint32_t { hash } << 16));
        bucket = offset;
        known_.emplace(name, offset);
        names_.insert(names_.end(), name.begin(), name.end());
        Pad(names_, start);
        ++addedNames_;
        addedNameChars_ += static_cast<int32_t>(name.size());
        return offset;
    }

    int32_t AddString(const std::string& text)
    {
        if (text.size() > 0x7FFF)
            Fail("a string too long for the table");
        int32_t offset = segments_[kStringSegment].length + static_cast<int32_t>(strings_.size());
        size_t start = strings_.size();
        strings_.push_back(static_cast<uint8_t>(text.size()));
        strings_.push_back(static_cast<uint8_t>(text.size() >> 8));
        strings_.insert(strings_.end(), text.begin(), text.end());
        Pad(strings_, start);
        return offset;
    }

    void FinishEnumerations()
    {
        for (size_t index = 0; index < typeInfos_; ++index) {
            size_t info = Segment(kTypeInfoSegment, static_cast<int32_t>(index * kTypeInfoSize), kTypeInfoSize);
            if ((Read32(file_, info) & 0xF) != 0) // TKIND_ENUM
                continue;
            std::string name = Name(Read32(file_, info + 0x34));
            const vex::model::EnumInfo* enumeration = vex::model::FindEnumeration(name);
            if (!enumeration)
                Fail("the library's enumeration " + name + " is not one of the panel's");
            FinishEnumeration(*enumeration, static_cast<int32_t>(index * kTypeInfoSize), info);
        }
    }

    Bytes Write()
    {
        const size_t nameEnd = static_cast<size_t>(segments_[kNameSegment].offset + segments_[kNameSegment].length);
        const size_t stringEnd = static_cast<size_t>(segments_[kStringSegment].offset + segments_[kStringSegment].length);
        edits_.push_back({ nameEnd, 0, names_ });
        edits_.push_back({ stringEnd, 0, strings_ });
        std::sort(edits_.begin(), edits_.end(), [](const Edit& a, const Edit& b) { return a.at < b.at; });

        Bytes fixed = file_;
        // The header's name count and characters, the directory's offsets and lengths, and each
        // type info's member data offset, all in the old file's places (nothing moves before
        // the segments).
        for (int32_t bucket = 0; bucket < kNameBuckets; ++bucket)
            Write32(fixed, static_cast<size_t>(segments_[kNameHashSegment].offset + 4 * bucket), buckets_[static_cast<size_t>(bucket)]);
        Write32(fixed, 0x30, Read32(file_, 0x30) + addedNames_);
        Write32(fixed, 0x34, Read32(file_, 0x34) + addedNameChars_);
        for (int i = 0; i < kSegmentCount; ++i) {
            if (segments_[i].offset >= 0)
                Write32(fixed, directory_ + 16 * i, static_cast<int32_t>(Moved(static_cast<size_t>(segments_[i].offset))));
        }
        Write32(fixed, directory_ + 16 * kNameSegment + 4, segments_[kNameSegment].length + static_cast<int32_t>(names_.size()));
        Write32(fixed, directory_ + 16 * kStringSegment + 4, segments_[kStringSegment].length + static_cast<int32_t>(strings_.size()));
        for (size_t index = 0; index < typeInfos_; ++index) {
            size_t info = static_cast<size_t>(segments_[kTypeInfoSegment].offset) + index * kTypeInfoSize;
            int32_t memory = Read32(file_, info + 4);
            if (memory >= 0)
                Write32(fixed, info + 4, static_cast<int32_t>(Moved(static_cast<size_t>(memory))));
        }

        Bytes out;
        size_t at = 0;
        for (const Edit& edit : edits_) {
            if (edit.at < at || edit.at + edit.removed > fixed.size())
                Fail("overlapping changes");
            out.insert(out.end(), fixed.begin() + at, fixed.begin() + edit.at);
            out.insert(out.end(), edit.inserted.begin(), edit.inserted.end());
            at = edit.at + edit.removed;
        }
        out.insert(out.end(), fixed.begin() + at, fixed.end());
        return out;
    }

private:
    struct SegmentEntry {
        int32_t offset;
        int32_t length;
    };

    size_t Segment(int segment, int32_t offset, size_t size) const
    {
        const SegmentEntry& entry = segments_[segment];
        if (offset < 0 || entry.offset < 0 || static_cast<size_t>(offset) + size > static_cast<size_t>(entry.length))
            Fail("an offset outside its segment");
        return static_cast<size_t>(entry.offset + offset);
    }

    // Where a position of the old file lies in the new one. A pure insertion moves everything
    // from its position on; a replaced range moves what follows it.
    size_t Moved(size_t position) const
    {
        int64_t shift = 0;
        for (const Edit& edit : edits_) {
            bool before = edit.removed == 0 ? edit.at <= position : edit.at + edit.removed <= position;
            if (before)
                shift += static_cast<int64_t>(edit.inserted.size()) - static_cast<int64_t>(edit.removed);
        }
        return static_cast<size_t>(static_cast<int64_t>(position) + shift);
    }

    void FinishEnumeration(const vex::model::EnumInfo& enumeration, int32_t hrefType, size_t info)
    {
        const int32_t elements = Read32(file_, info + 0x18);
        const size_t functions = static_cast<size_t>(elements & 0xFFFF);
        const size_t variables = static_cast<size_t>((elements >> 16) & 0xFFFF);
        if (functions != 0 || variables != enumeration.members.size())
            Fail("the enumeration " + std::string(enumeration.name) + " has other members than the panel's");
        const size_t block = static_cast<size_t>(Read32(file_, info + 4));
        const size_t recordsLength = static_cast<size_t>(Read32(file_, block));
        const size_t records = block + 4;
        const size_t ids = records + recordsLength;
        const size_t nameOffsets = ids + 4 * variables;
        const size_t recordOffsets = nameOffsets + 4 * variables;
        const size_t blockEnd = recordOffsets + 4 * variables;
        if (blockEnd > file_.size())
            Fail("member data past the end of the file");

        Bytes newRecords;
        std::vector<int32_t> newNames, newOffsets;
        for (size_t i = 0; i < variables; ++i) {
            const vex::model::EnumMember& member = enumeration.members[i];
            const size_t record = records + static_cast<size_t>(Read32(file_, recordOffsets + 4 * i));
            const int32_t infoWord = Read32(file_, record);
            const size_t length = static_cast<size_t>(infoWord & 0xFF);
            if (length < 20 || record + length > ids)
                Fail("a malformed member record in " + std::string(enumeration.name));

            const int32_t nameOffset = Read32(file_, nameOffsets + 4 * i);
            const std::string compiled = Name(nameOffset);
            const std::string published = vex::activex::LibraryName(member.name);
            if (compiled != std::string(member.name) && compiled != vex::activex::StandIn(enumeration.name, member.identifier))
                Fail("member " + std::to_string(i) + " of " + std::string(enumeration.name) + " is " + compiled);
            // The published name takes the stand-in's flags (what kind of name it is).
            const int32_t flags = Read32(file_, Segment(kNameSegment, nameOffset, 12) + 8) >> 8;
            newNames.push_back(compiled == published ? nameOffset : AddName(published, hrefType, flags));

            Bytes copy(file_.begin() + record, file_.begin() + record + length);
            if (copy.size() < kRecordWithHelp) {
                copy.resize(kRecordWithHelp, 0); // HelpContext 0
                Write32(copy, 0, (infoWord & ~0xFF) | static_cast<int32_t>(kRecordWithHelp));
            }
            Write32(copy, 24, AddString(std::string(member.name)));
            newOffsets.push_back(static_cast<int32_t>(newRecords.size()));
            newRecords.insert(newRecords.end(), copy.begin(), copy.end());
        }

        Bytes rewritten;
        Append32(rewritten, static_cast<int32_t>(newRecords.size()));
        rewritten.insert(rewritten.end(), newRecords.begin(), newRecords.end());
        rewritten.insert(rewritten.end(), file_.begin() + ids, file_.begin() + nameOffsets); // member ids
        for (int32_t offset : newNames)
            Append32(rewritten, offset);
        for (int32_t offset : newOffsets)
            Append32(rewritten, offset);
        edits_.push_back({ block, blockEnd - block, std::move(rewritten) });
    }

    Bytes file_;
    size_t directory_ = 0;
    size_t typeInfos_ = 0;
    SegmentEntry segments_[kSegmentCount] {};
    std::vector<int32_t> buckets_;          // the name hash table: each bucket's first name
    std::map<std::string, int32_t> known_; // every name of the table, by its offset
    Bytes names_;   // appended to the name table
    Bytes strings_; // appended to the string table
    int32_t addedNames_ = 0;
    int32_t addedNameChars_ = 0;
    std::vector<Edit> edits_;
};

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::cerr << "usage: finish-typelib COMPILED.tlb OUTPUT.tlb\n";
        return 2;
    }
    try {
        std::ifstream in(argv[1], std::ios::binary);
        Bytes file((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
        if (!in.good() && !in.eof())
            Fail(std::string("cannot read ") + argv[1]);
        Library library(std::move(file));
        library.FinishEnumerations();
        Bytes out = library.Write();
        std::ofstream file2(argv[2], std::ios::binary);
        file2.write(reinterpret_cast<const char*>(out.data()), static_cast<std::streamsize>(out.size()));
        if (!file2)
            Fail(std::string("cannot write ") + argv[2]);
    } catch (const std::exception& error) {
        std::cerr << "finish-typelib: " << error.what() << "\n";
        return 1;
    }
    return 0;
}
