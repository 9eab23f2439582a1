// Port: requests over HTTP and HTTPS.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/Text.h"

namespace tellwick::sender {

struct HttpRequest {
    bool post = false;
    std::string address;  // whole, percent-encoded
    std::string body;     // of a post: a form's fields, encoded likewise
};

struct HttpAnswer {
    enum class Kind {
        NotSent,     // no connection: nobody has the request
        NotTrusted,  // likewise, since who answers cannot prove to be the server
        Broken,      // sent, in part or whole, and no whole answer came
        Answered,
    };
    Kind kind = Kind::NotSent;
    std::int32_t status = 0;  // of one that was answered
    std::string body;         // its first 64 KB
    Text problem;             // of the others, in the system's words
};

class HttpRequests {
public:
    virtual ~HttpRequests() = default;

    using Done = std::function<void(const HttpAnswer&)>;

    // Certificates are checked, connections kept open for the next request; no redirection is
    // followed. Done is called once, not from within this call; not at all once this object is
    // gone.
    virtual void Send(const HttpRequest& request, Done done) = 0;
};

}  // namespace tellwick::sender
