// SPDX-License-Identifier: MIT
// A tour of the program on its real windows: tour [--dark | --contrast] [--scale FACTOR] [--text FACTOR]
// [FOLDER]. Writes a picture of each scene and a text with the contents of the lists to FOLDER, or to a new
// temporary folder whose path it prints. Reports scenes that fail, and then exits with 1. Runs off screen
// unless QT_QPA_PLATFORM says otherwise.

#include "Program.h"
#include "Stage.h"
#include "Twips.h"

#include <QPalette>
#include <array>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <filesystem>
#include <iostream>
#include <optional>
#include <unistd.h>

namespace {

constexpr int kUsage = 64;
constexpr int kHung = 3;
constexpr unsigned kPatience = 60; // seconds per scene

struct tOptions {
    bool bDark = false;
    bool bContrast = false;
    double textScale = 1;
    std::string sFolder;
};

bool ReadOptions(int argc, char** argv, tOptions& options)
{
    for (int n = 1; n < argc; ++n) {
        const std::string_view sArgument = argv[n];
        if (sArgument == "--dark") {
            options.bDark = true;
        } else if (sArgument == "--contrast") {
            options.bContrast = true;
        } else if (sArgument == "--scale" && n + 1 < argc) {
            setenv("QT_SCALE_FACTOR", argv[++n], 1);
        } else if (sArgument == "--text" && n + 1 < argc) {
            options.textScale = std::strtod(argv[++n], nullptr);
        } else if (!sArgument.starts_with('-') && options.sFolder.empty()) {
            options.sFolder = sArgument;
        } else {
            return false;
        }
    }
    return true;
}

const char* g_pScene = "";
const char* g_pTree = "";
tour::Stage* g_pStage = nullptr;

/// A screen with room for the windows at twice their size, unless another platform is selected.
void ProvideScreen(const tour::SampleTree& tree)
{
    tree.File("../screen.json",
              R"({"screens": [{"name": "tour", "x": 0, "y": 0, "width": 2560, "height": 1600,
        "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    if (std::getenv("QT_QPA_PLATFORM") == nullptr) {
        setenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + tree.Path("../screen.json")).c_str(), 1);
    }
}

/// Warnings of the toolkit are failures, except for what it cannot do off screen.
void Complaint(QtMsgType type, const QMessageLogContext& /*context*/, const QString& sText)
{
    if (type == QtDebugMsg || type == QtInfoMsg ||
        sText.startsWith(QLatin1String("This plugin does not support"))) {
        return;
    }
    std::cerr << sText.toStdString() << '\n';
    if (g_pStage != nullptr) {
        g_pStage->Expect(false, "the toolkit has nothing to complain about");
    }
}

/// A window that is never closed would block the tour for ever.
void Hung(int /*nSignal*/)
{
    for (const char* pText : {"tour: scene \"", g_pScene, "\" does not come to its end\n"}) {
        if (write(STDERR_FILENO, pText, std::strlen(pText)) < 0) {
            break;
        }
    }
    if (fork() == 0) {
        execl("/bin/rm", "rm", "-rf", g_pTree, nullptr);
    }
    _exit(kHung);
}

QPalette DarkPalette()
{
    QPalette dark(QColor(56, 58, 62), QColor(43, 45, 48));
    dark.setColor(QPalette::Base, QColor(30, 31, 34));
    dark.setColor(QPalette::Highlight, QColor(46, 100, 170));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    return dark;
}

/// White and yellow text and lines on black.
QPalette ContrastPalette()
{
    QPalette contrast(Qt::white, Qt::black, Qt::white, Qt::white, Qt::white, Qt::white, Qt::black);
    contrast.setColor(QPalette::ButtonText, Qt::yellow);
    contrast.setColor(QPalette::ToolTipBase, Qt::black);
    contrast.setColor(QPalette::ToolTipText, Qt::white);
    contrast.setColor(QPalette::Highlight, Qt::yellow);
    contrast.setColor(QPalette::HighlightedText, Qt::black);
    return contrast;
}

/// Plays all scenes; true if none failed.
bool Play(tour::Stage& stage)
{
    std::vector<tour::tScene> scenes = tour::Scenes();
    for (const auto& more : {tour::Operations(), tour::Troubles()}) {
        scenes.insert(std::prev(scenes.end()), more.begin(), more.end());
    }
    for (const tour::tScene& scene : scenes) {
        g_pScene = scene.pName;
        alarm(kPatience);
        stage.Enter(scene.pName);
        scene.play(stage);
    }
    return !stage.Failed();
}

int Run(int argc, char** argv, tOptions options)
{
    if (options.sFolder.empty()) {
        options.sFolder = (std::filesystem::temp_directory_path() / "tallyfen-tour-XXXXXX").string();
        if (mkdtemp(options.sFolder.data()) == nullptr) {
            throw std::filesystem::filesystem_error("no folder for the pictures",
                                                    std::error_code(errno, std::generic_category()));
        }
    }
    std::filesystem::create_directories(options.sFolder);
    tour::SampleTree tree;
    g_pTree = tree.Root().c_str();
    ProvideScreen(tree);
    qInstallMessageHandler(&Complaint);
    tour::Launches launches;
    std::optional<tour::Stage> stage; // made once there are forms
    const program::Program program(argc, argv, [&](platform::tSystem& system) {
        launches.StandBefore(*system.launcher);
        system.launcher = &launches;
        system.events = &stage.emplace(tree, launches, options.sFolder).Events();
    });
    g_pStage = &*stage;
    if (options.bDark || options.bContrast) {
        QApplication::setPalette(options.bDark ? DarkPalette() : ContrastPalette());
    }
    desktop::UseTextScale(options.textScale);
    const bool bAsItHasToBe = Play(*stage);
    g_pStage = nullptr;
    std::cout << "The pictures are in " << options.sFolder << '\n';
    return bAsItHasToBe ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    tOptions options;
    if (!ReadOptions(argc, argv, options)) {
        std::cerr << "usage: tour [--dark | --contrast] [--scale FACTOR] [--text FACTOR] [FOLDER]\n";
        return kUsage;
    }
    unsetenv("DBUS_SESSION_BUS_ADDRESS"); // the tour must not use the visitor's own desktop
    std::signal(SIGALRM, &Hung);
    try {
        return Run(argc, argv, options);
    } catch (const std::exception& error) {
        std::cerr << "tour: " << error.what() << '\n';
        return 1;
    }
}
