#pragma once

#include <QFuture>
#include <QObject>
#include <QPromise>
#include <QThreadPool>
#include <functional>
#include <memory>

/// The pool that runs the editor's long work. One thread: a session does one thing at a time. Qt's own
/// pool stays free for what Qt splits across it (conversions and smooth scaling of large images).
inline QThreadPool& backgroundWorkPool()
{
    static QThreadPool pool;
    static const bool oneThread = (pool.setMaxThreadCount(1), true);
    Q_UNUSED(oneThread);
    return pool;
}

/// Runs \a job on backgroundWorkPool() and hands its value to \a done on \a context's thread. Nothing is
/// handed over once \a context is gone. The job must own everything it reads: copies, never the context's
/// members.
template <typename T>
void runInBackground(QObject* context, std::function<T()> job, std::function<void(T)> done)
{
    auto promise = std::make_shared<QPromise<T>>();
    promise->future().then(context, [done = std::move(done)](T value) { done(std::move(value)); });
    promise->start();
    backgroundWorkPool().start([promise, job = std::move(job)] {
        promise->addResult(job());
        promise->finish();
    });
}
