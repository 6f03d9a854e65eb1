// Folding works without this script. It adds the search, the two buttons and the display of paths.
"use strict";
(() => {
    const tree = document.querySelector(".tree");
    const input = document.querySelector(".bar input");
    const count = document.querySelector(".bar output");
    const pathLine = document.querySelector(".bar code");
    const folds = [...tree.querySelectorAll("details")];
    let openBefore = null; // the nodes that were open when the search began

    // An element carries the part of its path behind its parent's.
    const pathOf = (element) => {
        let path = "";
        for (; element && element !== tree; element = element.parentElement)
            path = (element.dataset.k ?? "") + path;
        return path;
    };

    let rows = null;
    const searchable = () => rows ??= [...tree.querySelectorAll("p, summary")].map((row) => {
        const element = row.tagName === "P" ? row : row.parentElement;
        const value = row.tagName === "P" ? row.lastElementChild.textContent : row.textContent;
        return { row, element, text: (pathOf(element) + " " + value).toLowerCase() };
    });

    const paint = (hits, words) => {
        if (!window.Highlight) return;
        const ranges = [];
        for (const { row } of hits.slice(0, 1000)) {
            const walker = document.createTreeWalker(row, NodeFilter.SHOW_TEXT);
            for (let node = walker.nextNode(); node; node = walker.nextNode()) {
                const text = node.data.toLowerCase();
                for (const word of words) {
                    const at = text.indexOf(word);
                    if (at < 0 || at + word.length > node.length) continue;
                    const range = new Range();
                    range.setStart(node, at);
                    range.setEnd(node, at + word.length);
                    ranges.push(range);
                }
            }
        }
        CSS.highlights.set("found", new Highlight(...ranges));
    };

    const clear = () => {
        for (const element of tree.querySelectorAll("[hidden]")) element.hidden = false;
        if (openBefore) for (const fold of folds) fold.open = openBefore.has(fold);
        openBefore = null;
        count.textContent = "";
        window.CSS?.highlights?.clear();
    };

    const search = () => {
        const words = input.value.toLowerCase().split(/\s+/).filter(Boolean);
        if (!words.length) return clear();
        openBefore ??= new Set(folds.filter((fold) => fold.open));
        const hits = searchable().filter(({ text }) => words.every((word) => text.includes(word)));
        const found = new Set(hits.map(({ element }) => element));
        const open = new Set();
        for (const element of found)
            for (let up = element.parentElement; up !== tree && !open.has(up); up = up.parentElement) open.add(up);
        // A node that was found shows all below it, which stays folded.
        const whole = new Set();
        for (const { element } of searchable()) {
            if (found.has(element) || whole.has(element.parentElement)) whole.add(element);
            element.hidden = !whole.has(element) && !open.has(element);
        }
        for (const fold of folds) fold.open = open.has(fold);
        count.textContent = hits.length === 0 ? "nothing found" : hits.length + " found";
        paint(hits, words);
    };

    let timer = 0;
    input.addEventListener("input", () => {
        clearTimeout(timer);
        timer = setTimeout(search, 120);
    });
    document.addEventListener("keydown", (event) => {
        if (event.key === "/" && document.activeElement !== input) {
            event.preventDefault();
            input.focus();
        }
        if (event.key === "Escape" && input.value) {
            input.value = "";
            search();
        }
    });
    const [unfold, fold] = document.querySelectorAll(".bar button");
    const setAll = (open) => {
        for (const one of folds) one.open = open;
        if (!open && folds[0]) folds[0].open = true;
    };
    unfold.addEventListener("click", () => setAll(true));
    fold.addEventListener("click", () => setAll(false));
    for (const event of ["pointerover", "focusin"])
        tree.addEventListener(event, ({ target }) => {
            const element = target.closest("p, details");
            if (element) pathLine.textContent = pathOf(element);
        });
    pathLine.textContent = pathOf(tree.firstElementChild);
    document.querySelector(".bar").hidden = false;
})();
