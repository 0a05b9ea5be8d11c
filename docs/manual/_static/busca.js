// The search says in Portuguese how many pages it has found.
document.addEventListener("DOMContentLoaded", () => {
  const results = document.getElementById("search-results");
  if (!results) return;
  new MutationObserver(() => {
    const summary = results.querySelector(".search-summary");
    const found = summary && /^Search finished, found (\d+)/.exec(summary.innerText);
    if (found) summary.innerText = found[1] === "1" ? "Uma página encontrada." : `${found[1]} páginas encontradas.`;
  }).observe(results, { childList: true, subtree: true, characterData: true });
});
