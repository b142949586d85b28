// SPDX-License-Identifier: MIT
// Names are read back exactly from the system's tables, links and folders.

#include "MountTable.h"
#include "Require.h"
#include "Subfolders.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fuzzer/FuzzedDataProvider.h>
#include <set>
#include <sstream>

namespace {

using tNames = std::set<std::string>;

/// A name as the kernel writes it into the mount table.
std::string ByKernel(const std::string& sName)
{
    std::string sWritten;
    for (const char c : sName) {
        if (std::string_view(" \t\n\\#").find(c) == std::string_view::npos) {
            sWritten += c;
        } else {
            char aDigits[5];
            std::snprintf(aDigits, sizeof aDigits, "\\%03o", static_cast<unsigned char>(c));
            sWritten += aDigits;
        }
    }
    return sWritten;
}

/// A link name as the device manager makes it from a volume label.
std::string ByDeviceManager(const std::string& sName)
{
    std::string sWritten;
    for (const char c : sName) {
        const bool bPlain = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
                            (c & 0x80) != 0 || std::string_view("#+-.:=@_").find(c) != std::string_view::npos;
        if (bPlain) {
            sWritten += c;
        } else {
            char aDigits[5];
            std::snprintf(aDigits, sizeof aDigits, "\\x%02x", static_cast<unsigned char>(c));
            sWritten += aDigits;
        }
    }
    return sWritten;
}

void CheckUnescaped(const std::string& sAny)
{
    Require(desktop::Unescaped(ByKernel(sAny)) == sAny, "what the kernel wrote is read");
    Require(desktop::Unescaped(ByDeviceManager(sAny)) == sAny, "what the device manager wrote is read");
    const std::string sRead = desktop::Unescaped(sAny);
    Require(sRead.size() <= sAny.size() && (sAny.size() - sRead.size()) % 3 == 0, "an escape is one byte");
    Require(sAny.find('\\') != std::string::npos || sRead == sAny, "what is not escaped stays");
    Require(sAny.find('\0') != std::string::npos || sRead.find('\0') == std::string::npos ||
                sAny.find("\\000") != std::string::npos || sAny.find("\\x00") != std::string::npos,
            "no byte comes from nowhere");
}

void CheckMounts(const tNames& names)
{
    std::ostringstream table;
    std::vector<std::string> expected;
    for (const std::string& sName : names) {
        table << "1 2 3:4 / " << ByKernel("/media/" + sName) << " rw shared:5 - ext4 /dev/disk rw\n"
              << "1 2 3:4 / " << ByKernel("/proc/" + sName) << " rw - proc proc rw\n";
        expected.push_back("/media/" + sName);
    }
    std::istringstream input(table.str());
    Require(desktop::MountTable(input).Volumes() == expected, "the mount points are the volumes'");
}

/// An empty folder that is removed when the program ends.
struct tWorkFolder {
    tWorkFolder()
    {
        std::string sFolder = std::filesystem::temp_directory_path() / "tallyfen-fuzz-XXXXXX";
        Require(mkdtemp(sFolder.data()) != nullptr, "there is a folder to work in");
        path = sFolder;
    }
    ~tWorkFolder() { std::filesystem::remove_all(path); }
    tWorkFolder(const tWorkFolder&) = delete;
    tWorkFolder& operator=(const tWorkFolder&) = delete;

    std::filesystem::path path;
};

void CheckSubfolders(const tNames& names)
{
    static const tWorkFolder workFolder;
    const std::filesystem::path& work = workFolder.path;
    const std::filesystem::path folder = work / "all";
    std::filesystem::create_directory(folder);
    for (const std::string& sName : names) {
        std::filesystem::create_directory(folder / sName);
        std::filesystem::create_directory_symlink(".", work / sName);
    }
    const auto found = desktop::Subfolders(folder.string());
    Require(found.size() == names.size() && tNames(found.begin(), found.end()) == names, "all are listed");
    Require(desktop::MayHaveSubfolders(folder.string()) == !names.empty(), "a look tells as much");
    Require(desktop::Subfolders(work.string()) == std::vector<std::string>{"all"}, "links are no folders");
    std::filesystem::remove_all(folder);
    for (const std::string& sName : names) {
        std::filesystem::remove(work / sName);
    }
}

bool IsName(const std::string& sName)
{
    return !sName.empty() && sName.size() < 256 && sName != "." && sName != ".." && sName != "all" &&
           sName.find('/') == std::string::npos && sName.find('\0') == std::string::npos;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize)
{
    FuzzedDataProvider input(pData, nSize);
    const bool bFolders = input.ConsumeIntegralInRange(0, 15) == 0; // rarely, as the file system is slow
    tNames names;
    while (input.remaining_bytes() > 0 && names.size() < 4) {
        const std::string sAny = input.ConsumeRandomLengthString(300);
        CheckUnescaped(sAny);
        if (IsName(sAny)) {
            names.insert(sAny);
        }
    }
    CheckMounts(names);
    if (bFolders) {
        CheckSubfolders(names);
    }
    return 0;
}
