// SPDX-License-Identifier: MIT
#pragma once

#include "OperationDialogs.h"

#include <QString>
#include <QStringList>
#include <cstddef>
#include <string>

namespace desktop {

/// The words in which the user is asked before files go to the trash. They hold names, so the text is to be
/// shown as plain text.
class ConfirmationText
{
public:
    /// `confirmation` must outlive it.
    explicit ConfirmationText(const tConfirmation& confirmation) : m_confirmation(confirmation) {}

    /// "Move 20 files (320 bytes) to the trash?", or the name of the only one.
    [[nodiscard]] QString Question() const;

    /// A sentence for each concern: "3 of them have no other copy that stays."
    [[nodiscard]] QStringList Concerns() const;

    /// Each sentence and below it the full paths of its files, `nMost` in all.
    [[nodiscard]] QString Names(std::size_t nMost) const;

    /// What the buttons say for the files of which a copy stays, and for all; empty where the answer would be
    /// none, or the same as the other one's.
    [[nodiscard]] QString WithCopyButton() const;
    [[nodiscard]] QString AllButton() const;

private:
    [[nodiscard]] QString Named(const std::string& sPath) const;
    [[nodiscard]] QString Sentence(const tConcern& concern) const;
    [[nodiscard]] bool IsToBeCompared() const;

    const tConfirmation& m_confirmation;
};

} // namespace desktop
