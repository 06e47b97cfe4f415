// The services of the board and their ports.

#include <algorithm>

#include "shared/page/ConsoleMain.h"
#include "shared/page/Program.h"
#include "shared/page/RecordPage.h"

namespace {

class ServicesPage : public Console::RecordPage {
public:
    static constexpr Console::Function FUNCTION = Console::FUNCTION_SERVICES;

    explicit ServicesPage(const Console::PageContext& context)
        : RecordPage(context, FUNCTION, Console::TEXT_SERVICES_PURPOSE, Console::ITEM_SERVICES) {
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
                mark(service->port, Console::TEXT_PORT_IN_USE);
            }
        }
        // Without both nobody could log in to turn one on again.
        if (m_services[HTTP].enabled.isEmpty() && m_services[HTTPS].enabled.isEmpty()) {
            mark(m_services[HTTP].enabled);
            mark(m_services[HTTPS].enabled);
        }
    }

private:
    struct Service {
        Console::ChecksInput& enabled;
        Console::PortInput& port;
    };
    enum { HTTP, HTTPS };

    void addService(const std::string& heading, const std::string& name) {
        addHeading(heading);
        auto& enabled = add(Console::TEXT_SERVICE, Console::TEXT_NEITHER_HTTP_NOR_HTTPS,
                            std::make_unique<Console::ChecksInput>(name));
        enabled.addBox(text(Console::TEXT_ENABLED));
        auto& port = add(Console::TEXT_PORT, Console::TEXT_WRONG_PORT,
                         std::make_unique<Console::PortInput>(name + "_port"));
        m_services.push_back({enabled, port});
    }

    std::vector<Service> m_services;
};

}  // namespace

int main() {
    return Console::runProgram<Console::SettingsMain<ServicesPage>>();
}
