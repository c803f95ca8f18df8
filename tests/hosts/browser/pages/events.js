// Writes down every event that typing makes, one a line. The blue key says whether they are those that the
// table has for the case in the page's address, and the first that is not.
'use strict';

const kinds = ['keydown', 'keypress', 'beforeinput', 'input', 'keyup', 'change', 'submit',
  'compositionstart', 'compositionupdate', 'compositionend'];
const seen = [];

// A computer's keyboard has an event of its own for Shift; the on-screen keyboard holds no key.
const isComputer = location.search === '?computer';

const describe = event => {
  const words = [event.type, event.target.id];
  if (event instanceof KeyboardEvent)
    words.push(event.key, event.keyCode, event.charCode, event.code, event.shiftKey ? 'Shift' : '-');
  if (event instanceof InputEvent) words.push(event.inputType, event.data);
  if (event instanceof CompositionEvent) words.push(event.data);
  return words.join(' ') + (event.isTrusted ? '' : ' untrusted');
};

for (const kind of kinds)
  document.addEventListener(kind, event => {
    if (event.keyCode === 406) return;
    if (isComputer && event.key === 'Shift') return;
    seen.push(describe(event));
    if (kind === 'submit') event.preventDefault();
  }, true);

// A character's key, as a computer's keyboard types it in the same engine.
const typed = (field, text, keyCode, code, shift = '-') => [
  `keydown ${field} ${text} ${keyCode} 0 ${code} ${shift}`,
  `keypress ${field} ${text} ${text.codePointAt(0)} ${text.codePointAt(0)} ${code} ${shift}`,
  `beforeinput ${field} insertText ${text}`,
  `input ${field} insertText ${text}`,
  `keyup ${field} ${text} ${keyCode} 0 ${code} ${shift}`,
];

// A key that edits; what it does stands between its two ends.
const edited = (field, key, keyCode, ...between) => [
  `keydown ${field} ${key} ${keyCode} 0 ${key} -`, ...between, `keyup ${field} ${key} ${keyCode} 0 ${key} -`,
];
const changed = (field, type, data = null) =>
  [`beforeinput ${field} ${type} ${data === null ? '' : data}`, `input ${field} ${type} ${data === null ? '' : data}`];

const cases = {
  letters: () => [...typed('line', 'a', 65, 'KeyA'), ...typed('line', 'B', 66, 'KeyB', 'Shift'),
    ...typed('line', '1', 49, 'Digit1'), ...typed('line', '.', 190, 'Period'), ...typed('line', ' ', 32, 'Space')],
  accents: () => [...typed('line', 'é', 0, 'KeyE')],
  text: () => ['keydown line Unidentified 229 0 Unidentified -', ...changed('line', 'insertFromComposition', '.com'),
    'compositionend line .com'],
  editing: () => [...typed('line', 'a', 65, 'KeyA'), ...typed('line', 'b', 66, 'KeyB'),
    ...edited('line', 'ArrowLeft', 37), ...edited('line', 'Delete', 46, ...changed('line', 'deleteContentForward')),
    ...edited('line', 'Backspace', 8, ...changed('line', 'deleteContentBackward')), ...edited('line', 'ArrowRight', 39)],
  clear: () => [...typed('line', 'a', 65, 'KeyA'), ...typed('line', 'b', 66, 'KeyB'), ...changed('line', 'deleteContent')],
  submit: () => [...typed('line', 'a', 65, 'KeyA'), 'keydown line Enter 13 0 Enter -',
    'keypress line Enter 13 13 Enter -', 'change line', 'submit form', 'keyup line Enter 13 0 Enter -'],
  lines: () => [...typed('area', 'a', 65, 'KeyA'), 'keydown area Enter 13 0 Enter -',
    'keypress area Enter 13 13 Enter -', ...changed('area', 'insertLineBreak'), 'keyup area Enter 13 0 Enter -',
    ...typed('area', 'b', 66, 'KeyB')],
  tab: () => [...typed('line', 'a', 65, 'KeyA'), 'keydown line Tab 9 0 Tab -', 'change line', 'keyup area Tab 9 0 Tab -'],
  remote: () => ['keydown again 5 53 0 Digit5 -', 'keypress again 5 53 53 Digit5 -', 'keyup again 5 53 0 Digit5 -',
    'keydown again  403 0  - untrusted', 'keyup again  403 0  - untrusted'],
};

const wanted = location.hash.slice(1);
const starts = {lines: 'area', remote: 'again'};
window.addEventListener('load', () => id(starts[wanted] || 'line').focus());
on('blue', () => {
  const expected = cases[wanted]();
  const longest = Math.max(expected.length, seen.length);
  for (let i = 0; i < longest; ++i)
    if (expected[i] !== seen[i]) {
      say(`event ${i + 1}: found "${seen[i]}", expected "${expected[i]}"`);
      say(seen.join(' | '));
      return;
    }
  say(`all ${longest} events as expected`);
});
