#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace pixmo {

/// What a transfer delivers.
enum class AsyncType : int32_t { Picture = 0, File = 1, ByteArray = 2 };

/// Progress codes of a transfer; the gaps are the host runtime's own.
enum class AsyncStatus : int32_t {
    Error = 0,
    FindingResource = 1,
    Connecting = 2,
    Redirecting = 3,
    BeginDownloadData = 4,
    DownloadingData = 5,
    EndDownloadData = 6,
    UsingCachedCopy = 10,
    SendingRequest = 11,
    MIMETypeAvailable = 13,
    CacheFileNameAvailable = 14,
    BeginSyncOperation = 15,
    EndSyncOperation = 16,
};

/// Every request reaches the server, no cache answers it.
inline constexpr int32_t AsyncReadForceUpdate = 16;

struct AsyncRequest {
    std::string Target; ///< the whole address, ready to be sent: ASCII, percent-encoded
    AsyncType Type = AsyncType::ByteArray;
    std::string PropertyName; ///< the tag under which the transfer is known
    int32_t Options = AsyncReadForceUpdate;
    std::filesystem::path File; ///< Type File: where the data goes; the reader creates it
};

/// The completion record of a transfer.
struct AsyncProperty {
    std::string PropertyName;
    std::string Status; ///< readable; the reason where StatusCode is Error
    int32_t StatusCode = static_cast<int32_t>(AsyncStatus::Error);
    std::string Target;
    int32_t BytesRead = 0;
    int32_t BytesMax = 0; ///< 0 when the size is not known
    AsyncType Type = AsyncType::ByteArray;
    std::vector<uint8_t> Bytes; ///< Type ByteArray
    std::filesystem::path File; ///< Type File
};

/// Who hears of transfers; called on the thread that started them, from its event loop only.
class AsyncReadListener {
public:
    virtual ~AsyncReadListener() = default;

    /// Once a transfer that was not cancelled.
    virtual void AsyncReadComplete(const AsyncProperty& record) = 0;
    /// Any number of times before the completion; the record holds no data.
    virtual void AsyncReadProgress(const AsyncProperty& record) = 0;
};

/// Port: background transfers. An answer that is an error of HTTP (400 and above), cut short, too slow or
/// redirected without end completes with status Error; the file of a failed or cancelled transfer is removed.
class AsyncReader {
public:
    virtual ~AsyncReader() = default;

    /// The listener outlives the reader or is replaced by nullptr.
    virtual void setListener(AsyncReadListener* listener) = 0;
    /// Starts without blocking; the listener is never called from inside. A transfer of the same name that
    /// is still under way is cancelled first. Throws when the transfer cannot be started at all.
    virtual void AsyncRead(const AsyncRequest& request) = 0;
    /// No completion record follows. Unknown names are ignored.
    virtual void CancelAsyncRead(const std::string& propertyName) = 0;
};

} // namespace pixmo
