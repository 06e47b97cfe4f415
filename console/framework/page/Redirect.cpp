#include "framework/page/Redirect.h"

#include <iostream>

#include "framework/access/PageLimits.h"
#include "framework/component/Components.h"

namespace Console {

void printRedirect(const std::string& path) {
    notePageBegun();
    std::cout << "Status: 303 See Other\n"
                 "Location: "
              << path
              << "\n"
                 "Content-Type: text/html; charset=utf-8\n"
                 "Cache-Control: no-store\n"
                 "X-Content-Type-Options: nosniff\n"
                 "Referrer-Policy: same-origin\n"
                 "Content-Security-Policy: default-src 'none'; frame-ancestors 'self'\n"
                 "\n"
                 "<!DOCTYPE html>\n"
                 "<html lang=\"en\">\n"
                 "<title>303 See Other</title>\n";
    makeLink(path, path)->printHTML();
    std::cout << "\n</html>\n";
}

}  // namespace Console
