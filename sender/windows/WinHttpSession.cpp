#include "windows/WinHttpSession.h"

#include <winhttp.h>

#include <algorithm>

#include "platform/Utf8.h"
#include "windows/SystemFunction.h"

namespace tellwick::sender {

namespace {

constexpr wchar_t LibraryName[] = L"winhttp.dll";
constexpr wchar_t FormType[] = L"Content-Type: application/x-www-form-urlencoded\r\n";

// Milliseconds.
constexpr int ToResolve = 20'000;
constexpr int ToConnect = 20'000;
constexpr int ToSend = 30'000;
constexpr int ToReceive = 60'000;

constexpr std::size_t KeptOfBody = 65'536;
constexpr std::size_t MostOfBody = 1'048'576;

// Names that the headers of an old system lack.
constexpr DWORD AutomaticProxy = 4;
constexpr DWORD Tls10 = 0x80, Tls11 = 0x200, Tls12 = 0x800, Tls13 = 0x2000;

// Notes how far a request has come.
void CALLBACK NoteStage(HINTERNET, DWORD_PTR context, DWORD status, void*, DWORD) {
    if (context) *reinterpret_cast<DWORD*>(context) = status;
}

Text WordsOf(DWORD error) {
    wchar_t words[512];
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_FROM_HMODULE | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        GetModuleHandleW(LibraryName), error, 0, words, DWORD(std::size(words)), nullptr);
    const Text number = NumberText(std::int64_t(error));
    const Text text = OneLine(windows::FromWide(words, length));
    return text.empty() ? number : text + u" (" + number + u")";
}

// Where a failure shows by itself that no server has the request.
bool NeverSent(DWORD error) {
    switch (error) {
        case ERROR_WINHTTP_INVALID_URL:
        case ERROR_WINHTTP_UNRECOGNIZED_SCHEME:
        case ERROR_WINHTTP_NAME_NOT_RESOLVED:
        case ERROR_WINHTTP_CANNOT_CONNECT:
        case ERROR_WINHTTP_SECURE_FAILURE:
        case ERROR_WINHTTP_CLIENT_AUTH_CERT_NEEDED:
            return true;
        default:
            return false;
    }
}

// Where it was the server's certificate. Systems tell it by one number or by several.
bool NotTrusted(DWORD error) {
    switch (error) {
        case ERROR_WINHTTP_SECURE_FAILURE:
        case ERROR_WINHTTP_SECURE_CHANNEL_ERROR:
        case ERROR_WINHTTP_SECURE_CERT_DATE_INVALID:
        case ERROR_WINHTTP_SECURE_CERT_CN_INVALID:
        case ERROR_WINHTTP_SECURE_INVALID_CA:
        case ERROR_WINHTTP_SECURE_INVALID_CERT:
        case ERROR_WINHTTP_SECURE_CERT_REVOKED:
            return true;
        default:
            return false;
    }
}

bool Connecting(DWORD stage) {
    return stage == WINHTTP_CALLBACK_STATUS_RESOLVING_NAME ||
           stage == WINHTTP_CALLBACK_STATUS_NAME_RESOLVED ||
           stage == WINHTTP_CALLBACK_STATUS_CONNECTING_TO_SERVER ||
           stage == WINHTTP_CALLBACK_STATUS_CONNECTED_TO_SERVER;
}

}  // namespace

struct WinHttpSession::Library {
    struct Named {
        const char* name;
        template <class Function>
        operator Function*() const {
            return windows::SystemFunction<Function*>(LibraryName, name);
        }
    };
    decltype(&WinHttpOpen) open = Named{"WinHttpOpen"};
    decltype(&WinHttpSetTimeouts) setTimeouts = Named{"WinHttpSetTimeouts"};
    decltype(&WinHttpSetOption) setOption = Named{"WinHttpSetOption"};
    decltype(&WinHttpSetStatusCallback) setStatusCallback = Named{"WinHttpSetStatusCallback"};
    decltype(&WinHttpCrackUrl) crackUrl = Named{"WinHttpCrackUrl"};
    decltype(&WinHttpConnect) connect = Named{"WinHttpConnect"};
    decltype(&WinHttpOpenRequest) openRequest = Named{"WinHttpOpenRequest"};
    decltype(&WinHttpSendRequest) sendRequest = Named{"WinHttpSendRequest"};
    decltype(&WinHttpReceiveResponse) receiveResponse = Named{"WinHttpReceiveResponse"};
    decltype(&WinHttpQueryHeaders) queryHeaders = Named{"WinHttpQueryHeaders"};
    decltype(&WinHttpReadData) readData = Named{"WinHttpReadData"};
    decltype(&WinHttpCloseHandle) closeHandle = Named{"WinHttpCloseHandle"};

    bool There() const { return open && readData && closeHandle; }
};

// A handle of the library's.
struct WinHttpSession::Internet {
    Internet(const Library& library, HINTERNET handle) : library(library), handle(handle) {}
    Internet(const Internet&) = delete;
    Internet& operator=(const Internet&) = delete;
    ~Internet() {
        if (handle) library.closeHandle(handle);
    }
    const Library& library;
    HINTERNET handle;
};

WinHttpSession::WinHttpSession() : library(std::make_unique<const Library>()) {}

WinHttpSession::~WinHttpSession() = default;

bool WinHttpSession::Open() {
    if (session) return true;
    // The user's own proxy, where the system finds it out; else the machine's.
    HINTERNET handle = nullptr;
    for (const DWORD access : {AutomaticProxy, DWORD(WINHTTP_ACCESS_TYPE_DEFAULT_PROXY)}) {
        if (!handle) handle = library->open(L"Tellwick", access, nullptr, nullptr, 0);
    }
    if (!handle) return false;
    session = std::make_unique<Internet>(*library, handle);
    library->setTimeouts(handle, ToResolve, ToConnect, ToSend, ToReceive);
    // Some systems leave out by default what servers want today; each takes what it knows.
    for (DWORD protocols : {Tls12 | Tls13, Tls10 | Tls11 | Tls12}) {
        if (library->setOption(handle, WINHTTP_OPTION_SECURE_PROTOCOLS, &protocols,
                               sizeof protocols))
            break;
    }
    library->setStatusCallback(handle, NoteStage,
                               WINHTTP_CALLBACK_FLAG_RESOLVE_NAME |
                                   WINHTTP_CALLBACK_FLAG_CONNECT_TO_SERVER |
                                   WINHTTP_CALLBACK_FLAG_SEND_REQUEST,
                               0);
    return true;
}

bool WinHttpSession::Connect(const Text& host, std::uint16_t port) {
    Text place = host + u":" + NumberText(port);
    if (connection && place == connectedTo) return true;
    connection.reset();
    const HINTERNET handle = library->connect(session->handle, windows::Wide(host), port, 0);
    if (!handle) return false;
    connection = std::make_unique<Internet>(*library, handle);
    connectedTo = std::move(place);
    return true;
}

HttpAnswer WinHttpSession::Failed(DWORD error, DWORD stage) const {
    HttpAnswer answer;
    if (!NeverSent(error) && !Connecting(stage)) {
        answer.kind = HttpAnswer::Kind::Broken;
    } else if (NotTrusted(error)) {
        answer.kind = HttpAnswer::Kind::NotTrusted;
    }
    answer.problem = WordsOf(error);
    return answer;
}

HttpAnswer WinHttpSession::Exchange(const HttpRequest& request) {
    constexpr DWORD NothingSent = WINHTTP_CALLBACK_STATUS_RESOLVING_NAME;
    if (!library->There() || !Open()) return Failed(ERROR_MOD_NOT_FOUND, NothingSent);
    const Text address = FromUtf8(request.address);
    URL_COMPONENTS parts{};
    parts.dwStructSize = sizeof parts;
    parts.dwHostNameLength = parts.dwUrlPathLength = DWORD(-1);
    if (!library->crackUrl(windows::Wide(address), DWORD(address.size()), 0, &parts) ||
        !Connect(windows::FromWide(parts.lpszHostName, parts.dwHostNameLength), parts.nPort)) {
        return Failed(GetLastError(), NothingSent);
    }
    // Without a length of its own what is behind the "?" belongs to the path; "#" to nobody.
    Text path = windows::FromWide(parts.lpszUrlPath);
    path.resize(std::min(path.find(u'#'), path.size()));
    // Until the library says that it connects, it may use a connection that is open.
    DWORD stage = WINHTTP_CALLBACK_STATUS_SENDING_REQUEST;
    const bool secure = parts.nScheme == INTERNET_SCHEME_HTTPS;
    const Internet handle(
        *library, library->openRequest(
                      connection->handle, request.post ? L"POST" : L"GET", windows::Wide(path),
                      nullptr, WINHTTP_NO_REFERER, WINHTTP_DEFAULT_ACCEPT_TYPES,
                      WINHTTP_FLAG_ESCAPE_DISABLE | (secure ? WINHTTP_FLAG_SECURE : 0)));
    if (!handle.handle) return Failed(GetLastError(), NothingSent);
    DWORD disabled = WINHTTP_DISABLE_REDIRECTS | WINHTTP_DISABLE_COOKIES;
    library->setOption(handle.handle, WINHTTP_OPTION_DISABLE_FEATURE, &disabled, sizeof disabled);

    std::string body = request.body;
    const auto length = DWORD(body.size());
    if (!library->sendRequest(handle.handle, request.post ? FormType : nullptr, DWORD(-1),
                              length > 0 ? body.data() : nullptr, length, length,
                              reinterpret_cast<DWORD_PTR>(&stage))) {
        return Failed(GetLastError(), stage);
    }
    HttpAnswer answer;
    DWORD status = 0;
    DWORD size = sizeof status;
    constexpr DWORD StatusNumber = WINHTTP_QUERY_STATUS_CODE | WINHTTP_QUERY_FLAG_NUMBER;
    if (!library->receiveResponse(handle.handle, nullptr) ||
        !library->queryHeaders(handle.handle, StatusNumber, nullptr, &status, &size, nullptr)) {
        return Failed(GetLastError(), WINHTTP_CALLBACK_STATUS_REQUEST_SENT);
    }
    // To its end, or the connection could not be used again.
    char buffer[4096];
    for (std::size_t all = 0; all < MostOfBody; all += size) {
        if (!library->readData(handle.handle, buffer, sizeof buffer, &size)) {
            return Failed(GetLastError(), WINHTTP_CALLBACK_STATUS_REQUEST_SENT);
        }
        if (size == 0) break;
        answer.body.append(buffer, std::min<std::size_t>(size, KeptOfBody - answer.body.size()));
    }
    answer.kind = HttpAnswer::Kind::Answered;
    answer.status = std::int32_t(status);
    return answer;
}

}  // namespace tellwick::sender
