// Wakes the player's thread out of its sleep.
#pragma once

/// A counter in the kernel that a loop can poll. Rung before the sleep begins it isn't lost.
class Bell {
public:
    Bell();
    ~Bell();
    Bell(const Bell&) = delete;
    Bell& operator=(const Bell&) = delete;

    /// May be called by any thread.
    void Ring();
    /// Takes back all rings so far.
    void Clear();
    /// Readable while it rings; -1 if the system gave none.
    [[nodiscard]] int Descriptor() const { return m_descriptor; }

private:
    int m_descriptor;
};
