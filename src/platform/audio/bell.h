// What ends the sleep of the player's thread.
#pragma once

/// A counter in the kernel that a loop polls. If it was rung before a sleep begins, that sleep ends
/// at once.
class Bell {
public:
    Bell();
    ~Bell();
    Bell(const Bell&) = delete;
    Bell& operator=(const Bell&) = delete;

    /// May be called by any thread.
    void Ring();
    /// Silent again, however often it was rung.
    void Clear();
    /// For the loop to poll: there is something to read while it rings. -1 if the system gave none.
    [[nodiscard]] int Descriptor() const { return m_descriptor; }

private:
    int m_descriptor;
};
