#pragma once

#include <memory>

/**
 * The one place where a helper that exists once per process is kept.
 *
 * The slot is empty until somebody stores the helper and again after the main window released it, so that nothing
 * that touches a port or a widget outlives the application object. GUI thread only.
 */
template <typename Helper>
class ProcessWide
{
public:
    ProcessWide() = delete;

    /** The shared instance; empty while there is none. Assign to it to store or release the helper. */
    static std::shared_ptr<Helper> &instance()
    {
        static std::shared_ptr<Helper> helper;
        return helper;
    }
};
