// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace tour {

/// A home folder with sample files, in a temporary folder that is removed with this object. It becomes the
/// home of this process, and so contains its trash: must be created before anything uses either.
class SampleTree
{
public:
    /// Throws std::runtime_error if the files cannot be created.
    SampleTree();
    SampleTree(const SampleTree&) = delete;
    SampleTree& operator=(const SampleTree&) = delete;
    ~SampleTree();

    /// Creates file `sName`, a path relative to the home folder, and its parent folders.
    void File(const std::string& sName, std::string_view sContent) const;

    /// The full path of `sName`, which is relative to the home folder.
    [[nodiscard]] std::string Path(const std::string& sName) const { return m_sRoot + "/home/" + sName; }

    /// The temporary folder that contains everything.
    [[nodiscard]] const std::string& Root() const { return m_sRoot; }

private:
    std::string m_sRoot;
};

} // namespace tour
