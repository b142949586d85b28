// SPDX-License-Identifier: MIT
#include "SampleTree.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <sys/stat.h>

namespace tour {
namespace {

/// All files have the same time, so that the pictures of all tours look alike.
constexpr std::time_t kWritten = 1'700'000'000; // in November 2023

} // namespace

SampleTree::SampleTree()
{
    std::string sPattern = (std::filesystem::temp_directory_path() / "tour-XXXXXX").string();
    if (mkdtemp(sPattern.data()) == nullptr) {
        throw std::runtime_error(sPattern + ": " + std::strerror(errno));
    }
    m_sRoot = std::filesystem::canonical(sPattern).string();
    setenv("HOME", (m_sRoot + "/home").c_str(), 1);
    setenv("XDG_RUNTIME_DIR", m_sRoot.c_str(), 1);
    setenv("XDG_DATA_HOME", (m_sRoot + "/data").c_str(), 1);
    // Two equal files, three equal ones, empty ones, a hidden one, an odd name, one that is too large, some
    // single ones.
    const std::string sBeach(34'816, 'b');
    File("Pictures/beach.jpg", sBeach);
    File("Pictures/Backup/beach (1).jpg", sBeach);
    File("Pictures/harbour.jpg", std::string(34'816, 'h'));
    File("Pictures/mountains.jpg", std::string(52'104, 'm'));
    const std::string sReport(1'204, 'r');
    File("Documents/report.odt", sReport);
    File("Documents/Old/report.odt", sReport);
    File("Documents/Old/report (last year).odt", sReport);
    File("Documents/letter.txt", "Dear Ms Example,");
    File("Documents/shopping.txt", "");
    File("Documents/Old/notes.txt", "");
    File("Pictures/shopping.txt", "A frame");
    File("Pictures/new\nline \xFF.txt", "odd");
    File("Documents/odd.txt", "odd");
    File("Pictures/.hidden.jpg", sBeach);
    File("Documents/.config/letter.txt", "Dear Ms Example,");
    for (const char* pName : {"Pictures/film.mkv", "Documents/film.mkv"}) {
        File(pName, "");
        std::filesystem::resize_file(Path(pName), 10'000'001);
    }
}

SampleTree::~SampleTree()
{
    std::error_code error;
    std::filesystem::remove_all(m_sRoot, error);
    if (error) {
        std::cerr << "tour: " << m_sRoot << ": " << error.message() << '\n';
    }
}

void SampleTree::File(const std::string& sName, std::string_view sContent) const
{
    const std::string sPath = Path(sName);
    std::filesystem::create_directories(std::filesystem::path(sPath).parent_path());
    std::ofstream file(sPath, std::ios::binary);
    file << sContent;
    file.close();
    const timespec times[2] = {{kWritten, 0}, {kWritten, 0}};
    if (!file || utimensat(AT_FDCWD, sPath.c_str(), times, 0) != 0) {
        throw std::runtime_error(sPath + ": " + std::strerror(errno));
    }
}

} // namespace tour
