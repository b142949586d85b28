// SPDX-License-Identifier: MIT
#pragma once

#include "OperationDialogs.h"

#include <QString>
#include <QStringList>
#include <cstddef>
#include <string>

namespace desktop {

/// The texts of the question before files go to the trash. They contain file names, so they must be shown as
/// plain text.
class ConfirmationText
{
public:
    /// `confirmation` must outlive this object.
    explicit ConfirmationText(const tConfirmation& confirmation) : m_confirmation(confirmation) {}

    /// "Move 20 files (320 bytes) to the trash?", or with the name of a single file.
    [[nodiscard]] QString Question() const;

    /// A sentence for each concern: "3 of them have no other copy that stays."
    [[nodiscard]] QStringList Concerns() const;

    /// Each of these sentences, followed by the full paths of its files, at most `nMost` in all.
    [[nodiscard]] QString Names(std::size_t nMost) const;

    /// The labels of the buttons for the files of which a copy stays, and for all files. Empty if the answer
    /// would apply to no files, or to the same files as the other button.
    [[nodiscard]] QString WithCopyButton() const;
    [[nodiscard]] QString AllButton() const;

private:
    [[nodiscard]] QString Named(const std::string& sPath) const;
    [[nodiscard]] QString Sentence(const tConcern& concern) const;
    [[nodiscard]] bool IsToBeCompared() const;

    const tConfirmation& m_confirmation;
};

} // namespace desktop
