#include "platform/file_inbox.h"

#include "base/log.h"
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

namespace nubo {
namespace {

constexpr std::size_t message_size = 60'000;  // bytes: paths, a 0 behind each

int inbox = -1;
std::string inbox_path;

/// The address of the inbox. A path through the folder's descriptor is short, however long the folder's own is.
class InboxAddress {
public:
    explicit InboxAddress(const std::string& folder) : folder_(open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)) {
        address_.sun_family = AF_UNIX;
        const std::string path = "/proc/self/fd/" + std::to_string(folder_) + "/nubo.inbox";
        path.copy(address_.sun_path, sizeof address_.sun_path - 1);
    }
    ~InboxAddress() {
        if (folder_ >= 0) close(folder_);
    }
    InboxAddress(const InboxAddress&) = delete;
    InboxAddress& operator=(const InboxAddress&) = delete;

    const char* path() const { return address_.sun_path; }
    const sockaddr* get() const { return reinterpret_cast<const sockaddr*>(&address_); }
    static constexpr socklen_t size = sizeof(sockaddr_un);

private:
    int folder_;
    sockaddr_un address_{};
};

int new_socket() { return socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0); }

bool send_message(int to, const std::string& message) {
    return send(to, message.data(), message.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(message.size());
}

/// Several files to a message, since only few messages wait where nobody reads them. The number of files sent.
std::size_t send_files(int to, const std::vector<std::string>& files) {
    std::string message;
    std::size_t sent = 0;
    for (std::size_t i = 0; i < files.size(); ++i) {
        if (message.size() + files[i].size() >= message_size) {
            if (!send_message(to, message)) return sent;
            message.clear();
            sent = i;
        }
        message += files[i];
        message += '\0';
    }
    return send_message(to, message) ? files.size() : sent;
}

/// Bytes of the message that waits, 0 for none.
std::size_t waiting_bytes() {
    const ssize_t size = inbox < 0 ? -1 : recv(inbox, nullptr, 0, MSG_PEEK | MSG_TRUNC | MSG_DONTWAIT);
    return size > 0 ? static_cast<std::size_t>(size) : 0;
}

}  // namespace

void open_file_inbox(const std::string& folder) {
    const InboxAddress address(folder);
    inbox = new_socket();
    unlink(address.path());  // of a program that was killed: the lock tells that none runs
    if (inbox >= 0 && bind(inbox, address.get(), InboxAddress::size) == 0 &&
        chmod(address.path(), S_IRUSR | S_IWUSR) == 0) {
        inbox_path = folder + "/nubo.inbox";
        return;
    }
    UA_log("[ INFO ] : No files can be handed over by another start: %s", std::strerror(errno));
    close_file_inbox();
}

void close_file_inbox() {
    if (inbox >= 0) close(inbox);
    if (!inbox_path.empty()) unlink(inbox_path.c_str());
    inbox = -1;
    inbox_path.clear();
}

std::vector<std::string> take_handed_files() {
    std::vector<std::string> files;
    while (const std::size_t size = waiting_bytes()) {
        std::string message(size, '\0');
        recv(inbox, message.data(), size, MSG_DONTWAIT);
        for (std::size_t at = 0; at < size; at += files.back().size() + 1) files.emplace_back(message.c_str() + at);
    }
    return files;
}

std::size_t hand_over_files(const std::string& folder, const std::vector<std::string>& files) {
    const InboxAddress address(folder);
    const int to = new_socket();
    constexpr timeval patience{5, 0};
    const bool reached = to >= 0 && setsockopt(to, SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof patience) == 0 &&
                         connect(to, address.get(), InboxAddress::size) == 0;
    const std::size_t handed = reached ? send_files(to, files) : 0;
    if (to >= 0) close(to);
    return handed;
}

}  // namespace nubo
