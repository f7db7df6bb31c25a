// SPDX-License-Identifier: GPL-3.0-or-later
#include "manual/website.h"

#include <string_view>

namespace hmonitor {

using display::HelpEntry;
using display::Language;
using display::Words;
using display::wordsIn;

namespace {

constexpr Language kLanguages[] = {Language::Spanish, Language::English};
constexpr Words kManual{"Manual de HMonitor", "HMonitor manual"};
constexpr Words kContents{"Contenido", "Contents"};
constexpr Words kBefore{"Anterior", "Previous"};
constexpr Words kNext{"Siguiente", "Next"};

constexpr std::string_view kStyle = R"(/* SPDX-License-Identifier: GPL-3.0-or-later */
:root { color-scheme: dark light; --ground: #181b20; --plate: #252a32; --well: #0c1014;
  --text: #e4e8ee; --soft: #a4acb8; --line: #3d444e; --link: #6cb8ea; --mark: #f5a50a; }
@media (prefers-color-scheme: light) {
  :root { --ground: #ffffff; --plate: #eef1f5; --well: #f6f8fa; --text: #171a1f; --soft: #4c5560;
    --line: #bcc3cb; --link: #17588a; --mark: #8a5a00; } }
* { box-sizing: border-box; }
body { margin: 0; display: flex; background: var(--ground); color: var(--text);
  font: 16px/1.55 B612, "Noto Sans", "Segoe UI", sans-serif; }
nav { flex: 0 0 17rem; height: 100vh; position: sticky; top: 0; overflow-y: auto; padding: 1.2rem;
  background: var(--plate); border-right: 1px solid var(--line); font-size: .9rem; }
nav p { margin: 0 0 .8rem; font-weight: bold; }
nav ul { margin: 0; padding: 0; list-style: none; }
nav li { margin: .15rem 0; }
nav li.page { padding-left: 1rem; }
nav li.chapter { margin-top: .7rem; font-weight: bold; }
nav a[aria-current] { color: var(--mark); }
main { flex: 1 1 auto; min-width: 0; max-width: 52rem; padding: 1.2rem 2.5rem 3rem; }
a { color: var(--link); text-decoration: none; }
a:hover, a:focus { text-decoration: underline; }
h1 { font-size: 1.7rem; margin: .4rem 0 1rem; }
h2 { font-size: 1.15rem; margin: 2rem 0 .6rem; padding-bottom: .2rem;
  border-bottom: 1px solid var(--line); }
h3 { font-size: 1rem; margin: 1.4rem 0 .4rem; color: var(--soft); }
img { max-width: 100%; height: auto; display: block; border: 1px solid var(--line); }
table { border-collapse: collapse; margin: 1rem 0; width: 100%; }
th, td { text-align: left; vertical-align: top; padding: .35rem .7rem;
  border-bottom: 1px solid var(--line); }
th { background: var(--plate); color: var(--soft); font-weight: normal; }
code, pre { font-family: "B612 Mono", monospace; font-size: .9em; background: var(--well); }
pre { padding: .7rem 1rem; overflow-x: auto; border: 1px solid var(--line); }
footer { display: flex; justify-content: space-between; margin-top: 3rem; padding-top: .8rem;
  border-top: 1px solid var(--line); }
@media (max-width: 50rem) { body { display: block; }
  nav { height: auto; position: static; border-right: 0; } main { padding: 1rem; } }
@media print { nav, footer { display: none; } body { background: #fff; color: #000; } }
)";

std::string escaped(std::string_view text) {
    std::string html;
    for (const char c : text) {
        switch (c) {
            case '&':
                html += "&amp;";
                break;
            case '<':
                html += "&lt;";
                break;
            case '>':
                html += "&gt;";
                break;
            case '"':
                html += "&quot;";
                break;
            default:
                html += c;
        }
    }
    return html;
}

/// "hm-16.hlp" is "hm-16.html".
std::string fileOf(std::string_view page) {
    return std::string(page.substr(0, page.rfind('.'))) + ".html";
}

/// Links to pages become links to their files.
std::string withWebLinks(std::string html) {
    constexpr std::string_view kLink = "href=\"";
    constexpr std::string_view kPage = ".md\"";
    for (std::size_t at = html.find(kLink); at != std::string::npos;
         at = html.find(kLink, at + kLink.size())) {
        const std::size_t end = html.find('"', at + kLink.size());
        if (end == std::string::npos || end < kPage.size()) break;
        const std::size_t ending = end + 1 - kPage.size();
        if (html.compare(ending, kPage.size(), kPage) == 0 &&
            html.compare(at + kLink.size(), 4, "http") != 0) {
            html.replace(ending, kPage.size(), ".html\"");
        }
    }
    return html;
}

std::string head(Language language, const std::string& title, const char* up) {
    return std::string("<!DOCTYPE html>\n<html lang=\"") + folderOf(language) +
           "\">\n<head>\n<meta charset=\"utf-8\">\n"
           "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>" +
           escaped(title) + "</title>\n<link rel=\"stylesheet\" href=\"" + up +
           "manual.css\">\n</head>\n";
}

std::string link(const std::string& target, std::string_view words, const char* more = "") {
    return "<a href=\"" + target + "\"" + more + ">" + escaped(words) + "</a>";
}

std::string navigation(const std::vector<HelpEntry>& contents, const HelpEntry& shown,
                       Language language) {
    std::string html = "<nav aria-label=\"";
    html.append(wordsIn(language, kContents)).append("\">\n<p>");
    html.append(wordsIn(language, kManual)).append("</p>\n<ul>\n");
    for (const HelpEntry& entry : contents) {
        const bool here = entry.page == shown.page;
        html += entry.level == 0 ? "<li class=\"chapter\">" : "<li class=\"page\">";
        html += link(fileOf(entry.page), entry.title, here ? " aria-current=\"page\"" : "");
        html += "</li>\n";
    }
    const bool spanish = language == Language::Spanish;
    html += "</ul>\n<p>" +
            link(std::string("../") + (spanish ? "en/" : "es/") + fileOf(shown.page),
                 spanish ? "In English" : "En español") +
            "</p>\n</nav>\n";
    return html;
}

std::string pageOfWeb(const Book& book, const std::vector<HelpEntry>& contents, std::size_t at,
                      Language language) {
    const HelpEntry& entry = contents[at];
    std::string html = head(language, entry.title, "../") + "<body>\n" +
                       navigation(contents, entry, language) + "<main>\n" +
                       withWebLinks(book.page(entry.page, language)) + "<footer>\n<span>";
    if (at > 0) {
        const HelpEntry& before = contents[at - 1];
        html.append(wordsIn(language, kBefore)).append(": ");
        html += link(fileOf(before.page), before.title);
    }
    html += "</span>\n<span>";
    if (at + 1 < contents.size()) {
        const HelpEntry& next = contents[at + 1];
        html.append(wordsIn(language, kNext)).append(": ");
        html += link(fileOf(next.page), next.title);
    }
    return html + "</span>\n</footer>\n</main>\n</body>\n</html>\n";
}

}  // namespace

std::vector<WebFile> websiteOf(const Book& book) {
    std::vector<WebFile> files{{"manual.css", std::string(kStyle)}};
    std::string doors;
    for (const Language language : kLanguages) {
        const std::string folder = folderOf(language);
        const std::vector<HelpEntry> contents = book.contents(language);
        for (std::size_t at = 0; at < contents.size(); ++at) {
            files.push_back({folder + "/" + fileOf(contents[at].page),
                             pageOfWeb(book, contents, at, language)});
        }
        if (contents.empty()) continue;
        doors += "<p>" +
                 link(folder + "/" + fileOf(contents.front().page), wordsIn(language, kManual)) +
                 "</p>\n";
    }
    files.push_back({"index.html", head(Language::English, "HMonitor", "") +
                                       "<body>\n<main>\n<h1>HMonitor</h1>\n" + doors +
                                       "</main>\n</body>\n</html>\n"});
    return files;
}

}  // namespace hmonitor
