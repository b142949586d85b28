#include "MountTable.h"

#include "Unescaped.h"

#include <istream>
#include <sstream>

namespace desktop {

std::vector<tMount> ReadMountTable(std::istream& mountInfo)
{
    std::vector<tMount> mounts;
    std::string sLine;
    while (std::getline(mountInfo, sLine)) {
        // Number, parent, device, folder of the device, mount point, options, tags up to "-", type, source.
        std::istringstream fields(sLine);
        std::string sSkipped;
        tMount mount;
        fields >> sSkipped >> sSkipped >> mount.sDevice >> mount.sFolder >> mount.sPoint;
        while (fields >> sSkipped && sSkipped != "-") {
        }
        fields >> mount.sType >> mount.sSource;
        if (fields) {
            mount.sPoint = Unescaped(mount.sPoint);
            mounts.push_back(std::move(mount));
        }
    }
    return mounts;
}

bool IsIn(std::string_view sPath, std::string_view sFolder)
{
    return sPath == sFolder || sFolder == "/" || (sPath.starts_with(sFolder) && sPath[sFolder.size()] == '/');
}

} // namespace desktop
