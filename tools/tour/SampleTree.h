// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace tour {

/// A home folder with files to search in, in a temporary folder that goes with this object. It becomes the
/// home of this process, and the trash goes there too: made before anything asks for either.
class SampleTree
{
public:
    /// Throws std::runtime_error if the files cannot be made.
    SampleTree();
    SampleTree(const SampleTree&) = delete;
    SampleTree& operator=(const SampleTree&) = delete;
    ~SampleTree();

    /// Makes file `sName`, a path below the home folder, and the folders above it.
    void File(const std::string& sName, std::string_view sContent) const;

    /// The full path of what is called `sName` below the home folder.
    [[nodiscard]] std::string Path(const std::string& sName) const { return m_sRoot + "/home/" + sName; }

    /// The temporary folder that holds all of it.
    [[nodiscard]] const std::string& Root() const { return m_sRoot; }

private:
    std::string m_sRoot;
};

} // namespace tour
