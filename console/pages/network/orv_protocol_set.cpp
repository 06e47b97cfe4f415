// The services of the board and their ports.

#include <algorithm>

#include "framework/page/ConsoleMain.h"
#include "framework/page/Program.h"
#include "framework/page/RecordPage.h"
#include "pages/network/LostWay.h"

namespace Console {

namespace {

class ServicesPage : public RecordPage {
public:
    static constexpr Function FUNCTION = functionOf(TEXT_SERVICES);

    explicit ServicesPage(const PageContext& context)
        : RecordPage(context, FUNCTION, TEXT_SERVICES_PURPOSE, ITEM_SERVICES) {
        addService("HTTP", "http");
        addService("HTTPS", "https");
        addService("SSH", "ssh");
        addService("Telnet", "telnet");
    }

protected:
    void checkInputs() override {
        for (auto service = m_services.begin(); service != m_services.end(); ++service) {
            const std::string port = service->port.getText();
            const auto hasPort = [&port](const Service& other) {
                return other.port.getText() == port;
            };
            if (!service->port.isError() && std::any_of(m_services.begin(), service, hasPort)) {
                mark(service->port, TEXT_PORT_IN_USE);
            }
        }
        // Without both, nobody could log in to turn one on again.
        if (m_services[HTTP].enabled.isEmpty() && m_services[HTTPS].enabled.isEmpty()) {
            mark(m_services[HTTP].enabled);
            mark(m_services[HTTPS].enabled);
        }
    }

    std::string getLockOut() override {
        Record wanted;
        for (const Input* const input : getInputs()) {
            input->write(wanted);
        }
        const Record present = readRecord(getRequester(), ITEM_SERVICES);
        if (present.size() != wanted.size()) {
            failDamaged();
        }
        return describeLostService(present, wanted);
    }

private:
    struct Service {
        ChecksInput& enabled;
        PortInput& port;
    };
    enum { HTTP, HTTPS };

    void addService(const std::string& heading, const std::string& name) {
        addHeading(heading);
        auto& enabled =
            add(TEXT_SERVICE, TEXT_NEITHER_HTTP_NOR_HTTPS,
                std::make_unique<FlagInput>(name, text(TEXT_ENABLED), text(TEXT_DISABLED)));
        auto& port = add(TEXT_PORT, TEXT_WRONG_PORT, std::make_unique<PortInput>(name + "_port"));
        m_services.push_back({enabled, port});
    }

    std::vector<Service> m_services;
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::NetworkMain<Console::ServicesPage>>();
}
