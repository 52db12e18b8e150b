#pragma once

#include <shared_mutex>

namespace VOXI {

/// A lock that many readers or one writer may hold. Not recursive in either way.
///
/// It has the names of the standard library's shared mutexes too, so that std::unique_lock,
/// std::shared_lock and std::scoped_lock work with it.
class ReadWriteLock
{
public:
    void lockForRead() { m_mutex.lock_shared(); }
    void lockForWrite() { m_mutex.lock(); }
    void unlockRead() { m_mutex.unlock_shared(); }
    void unlockWrite() { m_mutex.unlock(); }

    void lock() { m_mutex.lock(); }
    bool try_lock() { return m_mutex.try_lock(); }
    void unlock() { m_mutex.unlock(); }
    void lock_shared() { m_mutex.lock_shared(); }
    bool try_lock_shared() { return m_mutex.try_lock_shared(); }
    void unlock_shared() { m_mutex.unlock_shared(); }

private:
    std::shared_mutex m_mutex;
};

/// Holds a lock for reading until the end of the scope.
class [[nodiscard]] ReadLocker
{
public:
    explicit ReadLocker(ReadWriteLock& lock) : m_lock(lock) { m_lock.lockForRead(); }
    ~ReadLocker() { m_lock.unlockRead(); }
    ReadLocker(const ReadLocker&) = delete;
    ReadLocker& operator=(const ReadLocker&) = delete;

private:
    ReadWriteLock& m_lock;
};

/// Holds a lock for writing until the end of the scope.
class [[nodiscard]] WriteLocker
{
public:
    explicit WriteLocker(ReadWriteLock& lock) : m_lock(lock) { m_lock.lockForWrite(); }
    ~WriteLocker() { m_lock.unlockWrite(); }
    WriteLocker(const WriteLocker&) = delete;
    WriteLocker& operator=(const WriteLocker&) = delete;

private:
    ReadWriteLock& m_lock;
};

} // namespace VOXI
