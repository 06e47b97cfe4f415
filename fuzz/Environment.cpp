// A page of the usual kind, asked with whatever environment, body and session the input has.
#include <algorithm>
#include <stdexcept>

#include "Peer.h"
#include "gui/AbstractMain.h"
#include "gui/CGIRequester.h"
#include "gui/Cookie.h"
#include "gui/FormInfo.h"
#include "orv/PException.h"
#include "support/Captured.h"
#include "support/CgiRequest.h"

using namespace ORVLib::Gui;

namespace {

class Page : public AbstractMain {
public:
    explicit Page(FormInfo& form) : AbstractMain(&form, 1) {}

protected:
    void errorExit(std::string /*title*/, int /*code*/) override {}  // it would end the process
    int execMain() override {
        int error = 0;
        getCookie();
        guiCheckLogin(error, nullptr, true);
        HTMLPage page(m_language);
        setAutoRefresh(page);
        HTMLMapUtil::insertIntoMap(page.getMap(), HTMLPage::KEY_COOKIE, new Cookie);
        page.getGenerator().printHTML();
        CGIRequester requester(m_sessionId.c_str());
        m_formInfo->getURLInfo(requester);
        m_formInfo->getQueryString();
        unsigned char address[4];
        m_formInfo->getFormIPAddr("ip", address);
        return 0;
    }
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Fuzz::Input input(data, size);
    const unsigned int set = input.number();
    CgiRequest request;
    request.post("", input.text());
    unsigned int bit = 1;
    for (const char* const name : {"HTTP_COOKIE", "HTTP_HOST", "SERVER_PORT", "REQUEST_METHOD",
                                   "CONTENT_LENGTH", "CONTENT_TYPE", "QUERY_STRING"}) {
        unsetenv(name);
        if ((set & bit) != 0) {
            Fuzz::setVariable(name, input.text());
        }
        bit <<= 1;
    }
    Fuzz::setOpenFile(input.text());
    Fuzz::responses = {input.take(input.number()), input.body()};
    Cookie cookie;
    cookie.setExpired((set & bit) != 0);
    const std::string line = printed(cookie);  // one header line, whatever came
    Fuzz::require(std::min(line.find_first_of("\r\n"), line.find('\0')) == line.size() - 1);
    const CapturedOutput output;
    try {
        FormInfo form;
        Page(form).exec();
    } catch (const std::out_of_range&) {  // the request is refused
    } catch (const ORVLib::PException&) {
    }
    return 0;
}
