// What the pages of the tests share: a line that sessions wait for, and actions on the remote's keys.
'use strict';

const codes = {red: 403, green: 404, yellow: 405, blue: 406};
const id = name => document.getElementById(name);

// Shows a line below those before it.
const say = text => {
  const line = document.createElement('p');
  line.textContent = text;
  id('said').append(line);
};

const on = (colour, action) => document.addEventListener('keydown', event => {
  if (event.keyCode === codes[colour]) action();
});

// A page that is loaded, has given its focus and is drawn.
window.addEventListener('load', () =>
  requestAnimationFrame(() => requestAnimationFrame(() => id('said') && say('ready'))));

// Says every change of a field's value, as <value>.
const sayValues = field => field.addEventListener('input', () =>
  say(`<${'value' in field ? field.value : field.innerText}>`));
