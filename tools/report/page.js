'use strict';
// Neither less-than signs nor ampersands: the page is well-formed XML as it stands.
(function () {
  const form = document.getElementById('filter');
  const words = document.getElementById('filter-words');
  const kind = document.getElementById('filter-kind');
  const count = document.getElementById('filter-count');
  const none = document.getElementById('filter-none');
  const batches = Array.from(document.querySelectorAll('.batch'));
  const messages = Array.from(document.querySelectorAll('.message'), function (element) {
    const has = element.dataset.has.split(' ');
    return { element: element, has: has, find: element.dataset.find.toLowerCase() };
  });

  function apply() {
    const wanted = words.value.toLowerCase().split(/\s+/).filter(Boolean);
    let shown = 0;
    for (const message of messages) {
      const isKind = kind.value === '' || message.has.includes(kind.value);
      const fits = isKind ? wanted.every(function (word) { return message.find.includes(word); }) : false;
      message.element.hidden = !fits;
      if (fits) shown += 1;
    }
    for (const batch of batches) {
      batch.hidden = batch.querySelector('.message:not([hidden])') === null;
    }
    count.textContent = shown + ' of ' + messages.length;
    none.hidden = shown !== 0;
  }

  // A link leads to a message even when the filter hides it.
  function reveal() {
    const target = document.getElementById(location.hash.slice(1));
    if (target === null || !target.hidden) return;
    words.value = '';
    kind.value = '';
    apply();
    target.scrollIntoView();
  }

  let timer = 0;
  words.addEventListener('input', function () {
    clearTimeout(timer);
    timer = setTimeout(apply, 100);
  });
  kind.addEventListener('change', apply);
  form.addEventListener('submit', function (event) {
    event.preventDefault();
    apply();
  });
  window.addEventListener('hashchange', reveal);
  form.hidden = false;
  apply();
})();
