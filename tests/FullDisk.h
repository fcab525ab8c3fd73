// A disk that is full, for a while.
#pragma once

#include <QtGlobal>

#include <csignal>

#include <sys/resource.h>

/// While it lives, no file of this process can grow beyond the given size.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_former);
        const rlimit limit{bytes, m_former.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &m_former); }
    Q_DISABLE_COPY_MOVE(FullDisk)

private:
    rlimit m_former{};
};
