#pragma once

#include <QByteArray>
#include <QTemporaryFile>
#include <cstdio>
#include <functional>
#include <unistd.h>

/// What \a action writes to standard output, which is its own file meanwhile.
inline QByteArray stdoutOf(const std::function<void()>& action)
{
    QTemporaryFile file;
    if (!file.open())
        return {};
    std::fflush(stdout);
    const int saved = dup(fileno(stdout));
    dup2(file.handle(), fileno(stdout));
    action();
    std::fflush(stdout);
    dup2(saved, fileno(stdout));
    ::close(saved);
    file.seek(0);
    return file.readAll();
}
