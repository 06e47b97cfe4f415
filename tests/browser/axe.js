// What axe-core finds wrong with the page, in a few words each. A frame later, when the page's scripts
// have seen its present width.
const [done] = arguments;
const rules = {
    runOnly: ["wcag2a", "wcag2aa", "wcag21a", "wcag21aa", "wcag22aa"],
    rules: { "target-size": { enabled: true } },
};
requestAnimationFrame(() => setTimeout(() => axe.run(document, rules).then(found => done(
    found.violations.flatMap(
        rule => rule.nodes.map(node => `${rule.id}: ${node.html.slice(0, 160)}`))))));
