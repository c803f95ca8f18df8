// Runs in every frame, in a world of its own that the page cannot see, from the document's start.
// Tells the browser what has the focus: the engine's input method is silent when a script moves,
// removes or disables the field.
(() => {
  'use strict';
  const handler = window.webkit && window.webkit.messageHandlers.focus;
  if (!handler) return;

  const textTypes = new Set(['text', 'search', 'url', 'tel', 'email', 'password', 'number']);
  // Typed letter by letter, as an address is; where the caret is in most of them no script can ask.
  const addressTypes = new Set(['url', 'email', 'tel', 'number']);
  const toggleTypes = new Set(['checkbox', 'radio']);
  // A custom element, or one that may have a shadow tree that even this script cannot look into.
  const mayBeClosed = element => element.shadowRoot === null && !isFrame(element) &&
    (element.localName.includes('-') || /^(article|aside|div|footer|header|main|nav|p|section|span)$/
      .test(element.localName));
  const isFrame = element => /^(iframe|frame|object)$/.test(element.localName);

  const frame = Math.random().toString(36).slice(2); // tells the frames of one page apart
  let serial = 0;         // a new number for each element that gets the focus
  let watched = null;     // the element last told
  let told = '';          // what was told of it

  const focused = () => {
    let element = document.hasFocus() ? document.activeElement : null;
    while (element && element.shadowRoot && element.shadowRoot.activeElement)
      element = element.shadowRoot.activeElement;
    return element;
  };

  const isShown = element => element.getClientRects().length > 0;

  const kindOf = element => {
    if (!element) return 'none';
    if (element.inputMode !== 'none' && isShown(element)) {
      if (element.isContentEditable) return 'text';
      if (element.localName === 'textarea' || element.localName === 'input' && textTypes.has(element.type))
        return element.readOnly || element.matches(':disabled') ? 'other' : 'text';
    }
    if (element.localName === 'input' && toggleTypes.has(element.type)) return 'toggle';
    if (element.localName === 'select' && !element.multiple) return 'select';
    if (isFrame(element)) return 'frame';
    if (element === document.body || element === document.documentElement) return 'none';
    return mayBeClosed(element) ? 'closed' : 'other';
  };

  const isAddress = element => addressTypes.has(element.type) || addressTypes.has(element.inputMode);

  // Removal and a changed attribute fire no focus event, and a change of the layout neither.
  const changes = new MutationObserver(() => look());
  const sizes = new ResizeObserver(() => look());
  const watch = element => {
    changes.disconnect();
    sizes.disconnect();
    if (!element) return;
    sizes.observe(element);
    for (let root = element.getRootNode(); root; root = root.host ? root.host.getRootNode() : null)
      changes.observe(root, {
        subtree: true, childList: true, attributes: true,
        attributeFilter: ['contenteditable', 'disabled', 'inputmode', 'readonly', 'type'],
      });
  };

  const tell = state => {
    const text = JSON.stringify(state);
    if (text === told) return;
    told = text;
    handler.postMessage(state);
  };

  const look = () => {
    if (held) return;
    const element = focused();
    if (element !== watched) {
      watched = element;
      serial += 1;
      watch(element);
    }
    const kind = kindOf(element);
    tell({frame, top: window === window.top, serial, kind,
      password: kind === 'text' && element.type === 'password',
      address: kind === 'text' && isAddress(element)});
  };

  const leave = () => {
    watched = null;
    watch(null);
    tell({frame, top: window === window.top, serial, kind: 'none', password: false, address: false, gone: true});
  };

  // The engine composes on where it began: a script may move the focus or take the text away, and the next letter
  // still goes there and pulls the focus with it. So the browser asks before each letter, and ends a word that
  // was left: hold(), the engine's commit, release().
  let composingIn = null; // the element
  let held = null;        // what has the focus meanwhile, and its caret; nothing is told then
  window.addEventListener('compositionstart', event => composingIn = event.composedPath()[0], true);
  window.addEventListener('compositionend', () => composingIn = null, true);

  const isBeforeCaret = (element, text) => {
    if ('value' in element)
      return element.selectionStart !== null && element.value.slice(0, element.selectionStart).endsWith(text);
    if (!element.isContentEditable) return true; // in a closed shadow tree, which hides its text
    const {anchorNode, anchorOffset} = getSelection();
    return element.contains(anchorNode) && anchorNode.nodeType === Node.TEXT_NODE &&
      anchorNode.data.slice(0, anchorOffset).endsWith(text);
  };
  const caretOf = element => {
    if (element && 'value' in element) return {from: element.selectionStart, to: element.selectionEnd};
    return getSelection().rangeCount > 0 ? {range: getSelection().getRangeAt(0).cloneRange()} : {};
  };
  const innerWord = () => {
    const frame = document.activeElement;
    return frame && isFrame(frame) && frame.contentDocument ? frame.contentWindow.keyboardWord : null;
  };
  window.keyboardWord = {
    // 'there' where the word stands before the caret; 'left' where the focus or the text is another one;
    // 'none' where no word is composed, or in another frame.
    state(text) {
      const inner = innerWord();
      if (inner) return inner.state(text);
      if (!composingIn) return 'none';
      return composingIn === focused() && isBeforeCaret(composingIn, text) ? 'there' : 'left';
    },
    hold() {
      const inner = innerWord();
      if (inner) inner.hold();
      else held = {element: focused(), caret: caretOf(focused())};
    },
    release() {
      const inner = innerWord();
      if (inner) inner.release();
      if (!held) return;
      composingIn = null;
      const {element, caret} = held;
      if (!element || element === document.body) document.activeElement.blur();
      else element.focus({preventScroll: true});
      if (typeof caret.from === 'number') element.setSelectionRange(caret.from, caret.to);
      if (caret.from === null) { // to the end, as no script can ask for its place
        element.select();
        getSelection().modify('move', 'forward', 'character');
      }
      if (caret.range) getSelection().setBaseAndExtent(caret.range.startContainer, caret.range.startOffset,
        caret.range.endContainer, caret.range.endOffset);
      held = null;
      look();
    },
  };

  // Where the focused element is, in the top frame's pixels; null in a frame of another site.
  const place = () => {
    let element = focused();
    let left = 0;
    let above = 0;
    while (element && isFrame(element)) {
      if (!element.contentDocument) return null;
      left += element.getBoundingClientRect().left + element.clientLeft;
      above += element.getBoundingClientRect().top + element.clientTop;
      element = element.contentDocument.activeElement;
    }
    while (element && element.shadowRoot && element.shadowRoot.activeElement)
      element = element.shadowRoot.activeElement;
    if (!element || element === document.body) return null;
    const box = element.getBoundingClientRect();
    return {
      left: box.left + left, width: box.width, top: box.top + above, bottom: box.bottom + above,
      lines: element.localName !== 'input',
    };
  };

  // A point on the focused element, as x + 65536 * y; -1 when it is not known.
  window.keyboardPoint = () => {
    const field = place();
    if (!field) return -1;
    return Math.round(field.left + field.width / 2) + 65536 * Math.round((field.top + field.bottom) / 2);
  };

  // The browser asks for room above the keyboard, and gives back what the page did not use since.
  let scrolled = null; // {from, to}: rows of the page
  let caret = null;    // its lower end, in rows below the field's top
  window.keyboardRoom = {
    // caretBottom: null when it is the same as before. Scrolls as far as the page goes, where that is
    // wanted, and returns how many rows are still missing above the limit.
    make(limit, caretBottom, mayScroll) {
      const field = place();
      const page = document.scrollingElement;
      if (caretBottom !== null) caret = caretBottom - (field ? field.top : 0);
      let bottom = field ? field.bottom : caret;
      if (field && field.lines && caret !== null) bottom = Math.min(bottom, field.top + caret);
      const missing = Math.ceil(bottom - limit);
      if (missing <= 0 || !page || !mayScroll) return Math.max(0, missing);
      const before = page.scrollTop;
      page.scrollBy({top: missing, behavior: 'instant'});
      const gained = page.scrollTop - before;
      if (gained !== 0)
        scrolled = {from: scrolled && scrolled.to === before ? scrolled.from : before, to: page.scrollTop};
      return Math.max(0, missing - gained);
    },
    back() {
      const page = document.scrollingElement;
      if (page && scrolled && page.scrollTop === scrolled.to)
        page.scrollTo({top: scrolled.from, behavior: 'instant'});
      scrolled = null;
      caret = null;
    },
  };
  window.addEventListener('scroll', () => {
    if (kindOf(focused()) === 'text') handler.postMessage({scrolled: true});
  }, true);

  window.addEventListener('focusin', look, true);
  // With another element to follow, its focusin tells; the field is not left in between.
  window.addEventListener('focusout', event => { if (!event.relatedTarget) look(); }, true);
  window.addEventListener('focus', look, true);
  window.addEventListener('blur', event => { if (event.target === window) look(); }, true);
  window.addEventListener('pageshow', look, true);
  window.addEventListener('pagehide', leave, true);
  look();
})();
