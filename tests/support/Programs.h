#pragma once

#include "TempTree.h"

#include <QTest>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace support {

/// A desktop with programs that note what they are started with, and kinds of files that have one, several or
/// none. There is one for the whole test program, since GIO looks at the environment once.
class Programs
{
public:
    static Programs& Get()
    {
        static Programs programs;
        return programs;
    }

    TempTree tree;

    /// What the program noted of its latest start: its arguments, then its session, then its session bus.
    /// Waits for it.
    std::vector<std::string> Started(const std::string& sProgram)
    {
        const std::string sNote = tree.sRoot + "/" + sProgram + ".note";
        EXPECT_TRUE(QTest::qWaitFor([&] { return std::filesystem::exists(sNote); })) << sProgram;
        std::ifstream note(sNote, std::ios::binary);
        std::vector<std::string> noted;
        for (std::string sPart; std::getline(note, sPart, '\0');) {
            noted.push_back(sPart);
        }
        std::filesystem::remove(sNote);
        return noted;
    }

private:
    Programs()
    {
        const std::string sData = tree.sRoot + "/data";
        for (const char* pVariable : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"}) {
            setenv(pVariable, sData.c_str(), 1);
        }
        setenv("XDG_DATA_DIRS", (tree.sRoot + "/none").c_str(), 1);
        setenv("XDG_CONFIG_DIRS", (tree.sRoot + "/none").c_str(), 1);
        setenv("XDG_RUNTIME_DIR", (tree.sRoot + "/run").c_str(), 1);
        unsetenv("DBUS_SESSION_BUS_ADDRESS");
        tree.File("data/mime/globs2", "50:text/plain:*.txt\n50:application/x-folder-test:*.many\n"
                                      "50:application/x-alone:*.alone\n50:application/x-broken:*.broken\n");
        const std::string sRecord =
            tree.File("record", "#!/bin/sh\n"
                                "note=$1; shift\n"
                                "read -r line </proc/$$/stat\n"
                                "{ [ $# = 0 ] || printf '%s\\0' \"$@\"\n"
                                "  set -- $line\n"
                                "  printf '%s\\0' \"$6\" \"$DBUS_SESSION_BUS_ADDRESS\"\n"
                                "} >\"$note.part\"\n"
                                "mv \"$note.part\" \"$note\"\n");
        chmod(sRecord.c_str(), 0755);
        const auto entry = [&](const std::string& sName, const std::string& sExec, const std::string& sMore) {
            tree.File("data/applications/" + sName + ".desktop",
                      "[Desktop Entry]\nType=Application\nName=" + sName + "\nExec=" + sExec + "\n" + sMore);
        };
        const auto recording = [&](const std::string& sName, const std::string& sCode,
                                   const std::string& sMore) {
            entry(sName, sRecord + " " + tree.sRoot + "/" + sName + ".note " + sCode, sMore);
        };
        recording("editor", "%U", "MimeType=text/plain;application/x-folder-test;\n");
        recording("viewer", "%f", "MimeType=application/x-folder-test;\n");
        recording("folders", "%u", "MimeType=inode/directory;\n");
        recording("Zebra", "%F", "");
        recording("clock", "", ""); // takes no files
        recording("hidden", "%f", "NoDisplay=true\n");
        entry("gone", tree.sRoot + "/no-such-program %f", "MimeType=application/x-broken;\n");
        tree.File("data/applications/broken.desktop", "[Desktop Entry]\nnonsense");
        tree.File("data/mimeapps.list", "[Default Applications]\ntext/plain=editor.desktop\n"
                                        "application/x-folder-test=viewer.desktop\n"
                                        "inode/directory=folders.desktop\n"
                                        "application/x-broken=gone.desktop;broken.desktop\n"
                                        "[Added Associations]\n"
                                        "text/plain=editor.desktop;\n"
                                        "application/x-folder-test=viewer.desktop;editor.desktop;\n"
                                        "application/x-broken=gone.desktop;broken.desktop;\n");
    }
};

} // namespace support
