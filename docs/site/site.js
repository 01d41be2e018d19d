// What the pages of the site add to Doxygen's: a search over guides and classes, and tables that
// fit a telephone. Everything is beside the pages, so it works from a file and without a network.
"use strict";

/** Splits a text as search.py does: words, and the parts of names such as setProductName. */
function termsOf(text) {
    return text.normalize("NFKC").split(/[^\p{L}\p{N}]+/u).filter(Boolean)
        .map(word => word.toLowerCase());
}

function load(file) {
    return new Promise((resolve, reject) => {
        const script = document.createElement("script");
        script.src = file;
        script.onload = resolve;
        script.onerror = reject;
        document.head.append(script);
    });
}

let loaded;
/** Loads the index once: search-data.js sets searchSections and searchIndex. */
function index() {
    loaded ??= load("lunr.min.js").then(() => load("search-data.js"))
        .then(() => lunr.Index.load(searchIndex));
    return loaded;
}

/** Returns the sections that have all words, or else those that have some, the best first. */
function find(index, terms) {
    const words = terms.filter(term => lunr.stopWordFilter(new lunr.Token(term)));
    const look = presence => index.query(query => {
        for (const [place, word] of (words.length ? words : terms).entries()) {
            query.term(word, {boost: 10, presence});
            query.term(word, {boost: 3, fields: ["title", "names"], wildcard: 2,
                              usePipeline: false});
            if (word.length > 4 && presence !== lunr.Query.presence.REQUIRED)
                query.term(word, {editDistance: 1, usePipeline: false});
        }
    });
    const all = look(lunr.Query.presence.REQUIRED);
    return all.length ? all : look(lunr.Query.presence.OPTIONAL);
}

/** Returns the part of the text around the first of the words. */
function excerpt(text, terms) {
    const lower = text.toLowerCase();
    const places = terms.map(term => lower.indexOf(term.slice(0, 6))).filter(place => place >= 0);
    const begin = Math.max(0, Math.min(...places, text.length) - 50);
    const from = begin === 0 || places.length === 0 ? 0 : text.indexOf(" ", begin) + 1;
    const end = text.length > from + 150 ? " …" : "";
    return (from ? "… " : "") + text.slice(from, from + 150) + end;
}

function showResults(list, results, terms) {
    list.replaceChildren(...results.slice(0, 12).map(result => {
        const [url, title, page, text] = searchSections[result.ref];
        const item = document.createElement("a");
        item.href = url;
        for (const [name, content] of [["strong", title], ["em", page === title ? "" : page],
                                       ["span", excerpt(text, terms)]])
            item.append(Object.assign(document.createElement(name), {textContent: content}));
        return item;
    }));
    if (!results.length)
        list.textContent = "Nothing found.";
}

function addSearch() {
    const box = document.createElement("form");
    box.id = "find";
    box.innerHTML = '<input id="find-field" type="search" autocomplete="off" ' +
        'placeholder="Search guides and classes" aria-label="Search guides and classes">' +
        '<nav id="find-results" aria-label="Results" hidden></nav>';
    document.getElementById("titlearea").after(box);
    const field = box.firstChild, list = box.lastChild;
    const update = async () => {
        const terms = termsOf(field.value);
        list.hidden = !terms.length;
        if (terms.length)
            showResults(list, find(await index(), terms), terms);
    };
    field.addEventListener("focus", index, {once: true});
    field.addEventListener("input", update);
    box.addEventListener("submit", async event => {
        event.preventDefault();
        await update();
        list.querySelector("a")?.click();
    });
    box.addEventListener("keydown", event => {
        const links = [field, ...list.querySelectorAll("a")];
        const step = {ArrowDown: 1, ArrowUp: -1}[event.key];
        if (step) {
            links[Math.max(0, links.indexOf(document.activeElement) + step)]?.focus();
            event.preventDefault();
        } else if (event.key === "Escape") {
            field.value = "";
            list.hidden = true;
        }
    });
    document.addEventListener("click", event => { list.hidden ||= !box.contains(event.target); });
    document.addEventListener("keydown", event => {
        if (event.key === "/" && !/INPUT|TEXTAREA/.test(document.activeElement.tagName)) {
            field.focus();
            event.preventDefault();
        }
    });
}

/** Lets long names break between their parts, not within a word. */
function breakNames() {
    const walker = document.createTreeWalker(document.getElementById("doc-content"),
                                             NodeFilter.SHOW_TEXT);
    const long = [];
    while (walker.nextNode())
        if (/\S{16}/.test(walker.currentNode.data) &&
            !walker.currentNode.parentElement.closest("pre, .fragment, script"))
            long.push(walker.currentNode);
    for (const node of long)
        node.replaceWith(...node.data.split(/(?<=[/_<,(]|::|\.(?=\w))(?=\S)/)
            .flatMap((part, place) => place ? [document.createElement("wbr"), part] : [part]));
}

/** Keeps short code in one line: `--favorite` does not break after its hyphens. */
function keepShortCode() {
    for (const code of document.querySelectorAll(":is(p, li, td) code"))
        code.classList.toggle("short", code.textContent.length < 25);
}

/** Shows the rows of a table that is wider than the page as blocks, each cell with its title. */
function stackTables() {
    for (const table of document.querySelectorAll(".contents table:not(.memberdecls, .memname)")) {
        const titles = [...table.querySelectorAll("tr:first-child > th")];
        if (!titles.length)
            continue;
        table.classList.remove("stacked");
        for (const cell of table.querySelectorAll("td"))
            cell.dataset.title = titles[cell.cellIndex]?.textContent.trim() ?? "";
        const room = table.parentElement.clientWidth;
        table.classList.toggle("stacked", Math.max(table.scrollWidth, table.tBodies[0].scrollWidth,
            table.tBodies[0].getBoundingClientRect().width) > room + 1);
    }
}

addEventListener("DOMContentLoaded", () => {
    addSearch();
    breakNames();
    keepShortCode();
    stackTables();
    addEventListener("resize", stackTables);
});
