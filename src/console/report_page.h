#pragma once

#include <string_view>

// The parts of the report that are the same for all programs.
namespace kvt::report_page {

inline constexpr std::string_view Head = R"html(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta http-equiv="Content-Security-Policy" content="default-src 'none'; style-src 'unsafe-inline'; script-src 'unsafe-inline'">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>Programs checked</title>
<style>
:root { color-scheme: light dark; --line: #8886; --good: #1a7f37; --bad: #c8102e; --none: #6a6a6a; }
@media (prefers-color-scheme: dark) { :root { --good: #57c474; --bad: #ff7b84; --none: #aaa; } }
body { font: 15px/1.45 system-ui, sans-serif; margin: 2rem auto; max-width: 88rem; padding: 0 1.5rem; }
h1 { font-size: 1.5rem; margin: 0 0 .25rem; }
table { border-collapse: collapse; width: 100%; margin-top: 1.25rem; }
th, td { text-align: left; vertical-align: top; padding: .5rem .6rem; border-bottom: 1px solid var(--line); }
th { white-space: nowrap; }
th button { font: inherit; font-weight: 600; color: inherit; background: none; border: 0; padding: 0; cursor: pointer; }
th[aria-sort="ascending"] button::after { content: " \25B4"; }
th[aria-sort="descending"] button::after { content: " \25BE"; }
td:nth-child(2) { overflow-wrap: anywhere; min-width: 12rem; font-weight: 600; }
td p { margin: .15rem 0 0; font-weight: 400; font-size: .87rem; opacity: .8; }
td:nth-child(5) { min-width: 14rem; overflow-wrap: anywhere; }
td:nth-child(1), td:nth-child(6), td:nth-child(7) { text-align: right; font-variant-numeric: tabular-nums; white-space: nowrap; }
.good b { color: var(--good); } .bad b { color: var(--bad); } .none b { color: var(--none); }
td svg { display: block; width: 13rem; height: 7rem; cursor: zoom-in; background: #000; }
/* As small as this, thin strokes would be lost, and the grid hide them. */
td svg:not(.large) path[stroke-width="15"] { stroke-width: 1.3px; vector-effect: non-scaling-stroke; }
td svg:not(.large) path[stroke="#404040"] { display: none; }
td svg.large { position: fixed; inset: 2rem; width: calc(100% - 4rem); height: calc(100% - 4rem); z-index: 1; cursor: zoom-out; outline: 2rem solid #000b; }
@media print { body { margin: 0; max-width: none; font-size: 11px; } tr { break-inside: avoid; } }
</style>
</head>
<body>
<h1>Programs checked</h1>
)html";

inline constexpr std::string_view TableHead = R"html(<table>
<thead><tr>
<th><button>No.</button></th>
<th><button>Program</button></th>
<th><button>Machine</button></th>
<th><button>Verdict</button></th>
<th><button>First finding</button></th>
<th><button>Lines</button></th>
<th><button>Time</button></th>
<th>Drawing</th>
</tr></thead>
<tbody>
)html";

inline constexpr std::string_view End = R"html(</tbody>
</table>
<script>
const body = document.querySelector("tbody");
const key = (row, column) => row.cells[column].dataset.key || row.cells[column].textContent;
document.querySelectorAll("th button").forEach((button) => button.addEventListener("click", () => {
    const head = button.parentElement;
    const down = head.getAttribute("aria-sort") === "ascending";
    document.querySelectorAll("th").forEach((other) => other.removeAttribute("aria-sort"));
    head.setAttribute("aria-sort", down ? "descending" : "ascending");
    const order = (a, b) => key(a, head.cellIndex).localeCompare(key(b, head.cellIndex), undefined, { numeric: true });
    [...body.rows].sort((a, b) => down ? order(b, a) : order(a, b)).forEach((row) => body.append(row));
}));
body.addEventListener("click", (event) => event.target.closest("svg")?.classList.toggle("large"));
addEventListener("keydown", (event) => {
    if (event.key === "Escape") document.querySelectorAll("svg.large").forEach((svg) => svg.classList.remove("large"));
});
</script>
</body>
</html>
)html";

}  // namespace kvt::report_page
