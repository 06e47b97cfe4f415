// What is wrong with the page at its present width: it scrolls sideways, a part is cut off, or two
// parts overlap. A table may scroll in its own frame.
const root = document.documentElement;
const problems = root.scrollWidth > root.clientWidth ? [`scrolls to ${root.scrollWidth} px`] : [];
const strip = document.querySelector(".strip");
if (strip && strip.scrollHeight > strip.clientHeight) {
    problems.push("the strip is too low");
}
const SHOWN = "a:not(.skip), button, input, select, h1, h2, th, td, .label, .value, .place";
// An open dialog covers the page, which cannot be used meanwhile.
const shown = document.querySelector("dialog:modal") || document;
const parts = [...shown.querySelectorAll(SHOWN)].filter(part => part.getClientRects().length);
const name = part => part.outerHTML.slice(0, 120);
const scrolls = part => part && (/auto|scroll/.test(getComputedStyle(part).overflowX)
    || scrolls(part.parentElement));
for (const part of parts) {
    const box = part.getBoundingClientRect();
    const isHidden = getComputedStyle(part).overflowX === "hidden"
        && part.scrollWidth > part.clientWidth;
    if (isHidden || (!scrolls(part) && (box.left < 0 || box.right > root.clientWidth + 1))) {
        problems.push(`cut off: ${name(part)}`);
    }
}
const meet = (one, other) =>
    Math.min(one.right, other.right) - Math.max(one.left, other.left) > 2
    && Math.min(one.bottom, other.bottom) - Math.max(one.top, other.top) > 2;
const overlap = (one, other) => !one.contains(other) && !other.contains(one)
    && [...one.getClientRects()].some(
        mine => [...other.getClientRects()].some(yours => meet(mine, yours)));
parts.forEach((part, index) => parts.slice(index + 1).filter(other => overlap(part, other))
    .forEach(other => problems.push(`overlap: ${name(part)} and ${name(other)}`)));
return problems;
