// SPDX-License-Identifier: MIT
#pragma once

namespace platform {

class Observable;

/// Gets notified when the state of an object has changed. Implemented by whatever displays the object.
class Observer
{
public:
    virtual ~Observer() = default;
    virtual void StateChanged(Observable& changed) = 0;
};

/// Plain state that notifies at most one observer of each change.
class Observable
{
public:
    Observable() = default;
    Observable(const Observable&) = delete;
    Observable& operator=(const Observable&) = delete;
    virtual ~Observable() = default;

    /// The observer is not owned. It must outlive the object or be removed with null.
    void Observe(Observer* pObserver) { m_pObserver = pObserver; }

protected:
    void Changed()
    {
        if (m_pObserver != nullptr) {
            m_pObserver->StateChanged(*this);
        }
    }

    /// Assigns a member, and notifies the observer if the value differs from the old one.
    template <typename T, typename U>
    void Change(T& member, const U& value)
    {
        if (member != value) {
            member = value;
            Changed();
        }
    }

    /// The same for a width or height. A negative one is refused: returns false and changes nothing.
    bool ChangeSize(float& member, float value)
    {
        if (value < 0) {
            return false;
        }
        Change(member, value);
        return true;
    }

private:
    Observer* m_pObserver = nullptr;
};

} // namespace platform
