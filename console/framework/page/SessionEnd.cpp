#include "framework/page/SessionEnd.h"

#include <iostream>

#include "framework/access/CsrfToken.h"
#include "framework/component/PageText.h"
#include "framework/input/Form.h"
#include "framework/page/PageStep.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

/// HTML, and the text after it.
struct Piece {
    const char* html;
    Text text;
};

constexpr char BEGIN[] =
    "<dialog id=\"session_ending\" role=\"alertdialog\" aria-labelledby=\"ending_title\" "
    "aria-describedby=\"ending_text\">\n";

// clang-format off
constexpr Piece PIECES[] = {
    {"\n<h2 id=\"ending_title\">", TEXT_SESSION_ENDING},
    {"</h2>\n<p id=\"ending_text\">", TEXT_SESSION_ENDING_WHY},
    {" <b role=\"timer\"></b></p>\n<p class=\"failed\" hidden>", TEXT_STAY_FAILED},
    {"</p>\n<p class=\"buttons\"><button type=\"button\" value=\"stay\">", TEXT_STAY},
    {"</button> <button type=\"button\" value=\"close\">", TEXT_CLOSE},
    {"</button></p>\n</dialog>\n"
     "<dialog id=\"session_ended\" role=\"alertdialog\" aria-labelledby=\"ended_title\" "
     "aria-describedby=\"ended_text\">\n<h2 id=\"ended_title\">", TEXT_SESSION_ENDED},
    {"</h2>\n<div id=\"ended_text\">\n<p>", TEXT_SESSION_ENDED_WHY},
    {"</p>\n<p class=\"kept\" hidden>", TEXT_INPUT_KEPT},
    {"</p>\n</div>\n<p class=\"buttons\"><a href=\"/common/login.cgi\" target=\"_top\">",
     TEXT_LOGIN},
    {"</a> <button type=\"button\" value=\"close\">", TEXT_CLOSE},
    {"</button></p>\n</dialog>\n<template id=\"input_back\">", TEXT_INPUT_BACK},
};
// clang-format on

constexpr char END[] = "</template>\n<script src=\"/session.js\"";

/// Every page prints it, so it has no skeleton of its own, which the page would have to read.
class SessionEnd : public HTMLComponent {
public:
    SessionEnd(const PageContext& context, bool isRenewed)
        : m_token(makeFormEnd(context.requester)),
          m_isRenewed(isRenewed),
          m_isRefused(isRefused(context)) {}

    void printHTML() const override {
        std::cout << BEGIN;
        m_token->printHTML();
        for (const Piece& piece : PIECES) {
            std::cout << piece.html << sentenceText(text(piece.text));
        }
        std::cout << END << (m_isRenewed ? " data-renewed=\"yes\"" : "")
                  << (m_isRefused ? " data-refused=\"yes\"" : "") << "></script>\n";
    }
    bool isError() const override { return false; }

private:
    /// True for a form that was opened in another session, or did not arrive whole.
    static bool isRefused(const PageContext& context) {
        return context.form.isPostMethod() &&
               !isCsrfToken(fieldOf(context.form, END_FIELD), context.requester.getSessionId());
    }

    Component m_token;
    bool m_isRenewed;
    bool m_isRefused;
};

}  // namespace

Component makeSessionEnd(const PageContext& context, bool isRenewed) {
    return std::make_unique<SessionEnd>(context, isRenewed);
}

}  // namespace Console
