// A process of the kits that does what it is told on its standard input, a command a line.

#include "tests/kits/bus/peer/Peer.h"

#include <cstdlib>
#include <iostream>
#include <kernel/OS.h>
#include <sstream>
#include <vector>

namespace {

// | command | answer |
// |---|---|
// | create NAME CAPACITY | the port, or an error |
// | find NAME | as above |
// | write PORT CODE SIZE [TIMEOUT] | the status; the bytes are those of pattern() |
// | read PORT [TIMEOUT] | code, size and whether the bytes are right, or an error |
// | count PORT, close PORT, delete PORT | what the call returns |
std::string Port(const std::string& command, std::istringstream& words) {
    if (command == "create") {
        std::string name;
        int32 capacity = 0;
        words >> name >> capacity;
        return std::to_string(create_port(capacity, name.c_str()));
    }
    if (command == "find") {
        std::string name;
        words >> name;
        return std::to_string(find_port(name.c_str()));
    }
    port_id port = 0;
    words >> port;
    if (command == "write") {
        int32 code = 0;
        size_t size = 0;
        bigtime_t timeout = B_INFINITE_TIMEOUT;
        words >> code >> size;
        words >> timeout;
        const std::string bytes = Pattern(code, size);
        return std::to_string(
            write_port_etc(port, code, bytes.data(), size, B_RELATIVE_TIMEOUT, timeout));
    }
    if (command == "read") {
        bigtime_t timeout = B_INFINITE_TIMEOUT;
        words >> timeout;
        return Read(port, timeout);
    }
    if (command == "count")
        return std::to_string(port_count(port));
    if (command == "close")
        return std::to_string(close_port(port));
    if (command == "delete")
        return std::to_string(delete_port(port));
    return "what?";
}

}  // namespace

int main() {
    if (const char* signature = std::getenv("PEER_SIGNATURE"))
        return RunApplication(signature);
    for (std::string line; std::getline(std::cin, line);) {
        std::istringstream words(line);
        std::string command;
        words >> command;
        std::cout << Port(command, words) << std::endl;
    }
    return 0;
}
